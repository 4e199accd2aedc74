// How events enter the system and how the run ends.
#pragma once

#include <functional>

namespace views {

class Form;

// Runs what an event of the operator sets off. A failure that no window expects is reported with
// its reason and then ends the application in order: every open window is closed, and the code
// behind their being shown is left. Every event enters through here.
void Guard(const std::function<void()>& event);

// Loads a window, centres it on the screen and shows it modally; returns when it is closed.
// Does not return when the application has ended meanwhile.
void ShowModal(Form& form);

// The window on top, which alone takes what the operator does; null before the first.
const Form* TopForm();

// Ends the run: closes every open window.
void EndApplication(int exitStatus);
bool ApplicationEnded();
int ExitStatus();

// What is to be done when a failure ends the run, after it was reported.
void OnFailure(std::function<void()> action);

// Forgets all of the above, for the next test.
void ResetApplication();

}  // namespace views
