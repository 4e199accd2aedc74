#pragma once

namespace report {

// The style sheet of the page; without quotes, < and &.
extern const char* const kStyle;

}  // namespace report
