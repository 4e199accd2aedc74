#include "views/spoken_name.h"

#include <algorithm>

#include "text/strings.h"
#include "views/control.h"
#include "views/form.h"

namespace views {
namespace {

std::string Plainly(std::string caption) {
    std::erase(caption, '&');
    caption.erase(caption.find_last_not_of(" :?") + 1);
    return std::string(text::Trim(caption));
}

// Goes through the layout in its order as far as the control.
struct Search {
    const Control& wanted;
    const Control* before = nullptr;
    std::string name;

    bool In(const Layout& layout, const Control* frame) {
        if (layout.kind == Layout::Kind::kFrame) {
            frame = layout.control;
        } else if (layout.control == &wanted) {
            const bool label = before != nullptr && before->GetKind() == Control::Kind::kLabel;
            const auto* const told = dynamic_cast<const CaptionedControl*>(label ? before : frame);
            if (told != nullptr) name = Plainly(told->Caption());
            return true;
        } else if (layout.control != nullptr) {
            before = layout.control;
        }
        return std::any_of(layout.parts.begin(), layout.parts.end(),
                           [&](const Layout& part) { return In(part, frame); });
    }
};

}  // namespace

std::string SpokenName(const Control& control) {
    if (!control.spokenName.empty()) return control.spokenName;
    if (dynamic_cast<const CaptionedControl*>(&control) != nullptr) return {};
    Search search{control, nullptr, {}};
    search.In(control.Owner().GetLayout(), nullptr);
    return search.name;
}

}  // namespace views
