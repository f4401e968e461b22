#pragma once
#include <windows.h>

#include <vector>

namespace search {

// Places the controls of the search dialog for its current size: the list and the map share the
// space, the other controls keep their distances to the borders.
class SearchLayout {
  public:
    // Records the resource's size as the minimum on a screen that is large enough, and the
    // controls' current places as those for that size.
    void Remember(HWND dialog);
    // Moves the controls to their places. Without a map (null) the list takes all the space.
    void Apply(HWND map) const;
    // Sets the dialog's smallest size, which is never larger than the screen's work area.
    void LimitSize(MINMAXINFO& limits) const;
    // Moves and shrinks the dialog so that it lies within the work area.
    void FitWorkArea() const;

  private:
    struct Place {
        int control;
        RECT rect;
    };
    SIZE ScaleClient() const;
    RECT Scale(const RECT& rect) const;

    HWND dialog_ = nullptr;
    SIZE client_{};
    SIZE unit_{};
    std::vector<Place> places_;
};

}  // namespace search
