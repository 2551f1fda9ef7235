#include "core/page_layout.h"

namespace tarnvik {

PageLayout Curves_Layout() {
    return {{.Left = 22, .Top = 6, .Right = 22, .Bottom = 14}, 30, 44};
}

PageLayout Profile_Layout() {
    return {{.Left = 6, .Top = 6, .Right = 6, .Bottom = 6}, 0, 44};
}

PageLayout Section_Layout() {
    return {{.Left = 0, .Top = 4, .Right = 6, .Bottom = 0}, 34, 52};
}

PageLayout Report_Layout() {
    return {};
}

PageLayout Record_Layout() {
    return {{.Left = 0, .Top = 0, .Right = 1, .Bottom = 1}, 0, 56, 24, 50};
}

}  // namespace tarnvik
