#include "search/frmSearch.h"

namespace search {

std::optional<std::string> ShowSearchDialog(HWND, HWND) {
    return std::nullopt;
}

}  // namespace search
