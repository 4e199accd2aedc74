// The messages about data files that cannot be loaded.
#pragma once

#include <string_view>

namespace materiallist {

// Beeps and shows the text under the title "Error in Loading".
void WarnInLoading(std::string_view text);

// The same with "File ", the path in lower case and what is wrong with it (" is not found").
void WarnAboutFile(std::string_view path, std::string_view what);

}  // namespace materiallist
