// The names by which screen readers tell the controls.
#pragma once

#include <string>

namespace views {

class Control;

// Of a control with a caption nothing, which stands there itself; of another one the name its
// window gives it, else the label in front of it in the layout, without the colon and the blanks
// that set it apart, else the caption of the frame around it. Empty where there is none of these.
std::string SpokenName(const Control& control);

}  // namespace views
