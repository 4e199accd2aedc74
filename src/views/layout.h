// The small description of how a window arranges its controls: rows, columns, frames and tables
// of labels and fields. The order of the description is also the order of the Tab key.
#pragma once

#include <utility>
#include <vector>

namespace views {

class Control;
class Frame;

struct Layout {
    enum class Kind {
        kControl,
        kRow,      // side by side
        kColumn,   // one below the other
        kFrame,    // a frame around one part
        kFields,   // rows of two: labels at the left, their fields aligned at the right
        kStretch,  // free room
    };

    Kind kind = Kind::kControl;
    Control* control = nullptr;  // of kControl and kFrame
    std::vector<Layout> parts;
    bool grows = false;  // takes the free room of its row or column

    Layout() = default;
    Layout(Control& single) : control(&single) {}  // a control is a layout of its own
    Layout(Kind of, std::vector<Layout> with) : kind(of), parts(std::move(with)) {}
};

inline Layout Row(std::vector<Layout> parts) {
    return {Layout::Kind::kRow, std::move(parts)};
}
inline Layout Column(std::vector<Layout> parts) {
    return {Layout::Kind::kColumn, std::move(parts)};
}
inline Layout Stretch() {
    Layout layout(Layout::Kind::kStretch, {});
    layout.grows = true;
    return layout;
}
inline Layout Grow(Layout part) {
    part.grows = true;
    return part;
}
// label, field, label, field, ...
inline Layout Fields(std::vector<Layout> parts) {
    return {Layout::Kind::kFields, std::move(parts)};
}
Layout Framed(Frame& frame, Layout part);

}  // namespace views
