#pragma once
#include <windows.h>

#include <vector>

namespace search {

// Where the controls of the search dialog stand at its present size: the list and the map share the
// room, the rest keeps its distance to the borders.
class SearchLayout {
  public:
    // Takes the dialog's present size as its smallest and the controls' places as those for it.
    void Remember(HWND dialog);
    // Puts the controls where they belong. Without a map the list has all the room.
    void Apply(HWND map) const;
    void LimitSize(MINMAXINFO& limits) const;

  private:
    struct Place {
        int control;
        RECT rect;
    };
    SIZE ScaledClient() const;
    RECT Scaled(const RECT& rect) const;

    HWND dialog_ = nullptr;
    SIZE client_{};
    SIZE unit_{};
    std::vector<Place> places_;
};

}  // namespace search
