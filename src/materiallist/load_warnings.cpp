#include "materiallist/load_warnings.h"

#include "text/strings.h"
#include "views/screen.h"

namespace materiallist {

void WarnInLoading(std::string_view text) {
    views::TheScreen().Beep();
    views::ShowWarning(text, "Error in Loading");
}

void WarnAboutFile(std::string_view path, std::string_view what) {
    WarnInLoading("File " + text::LowerCase(path).append(what));
}

}  // namespace materiallist
