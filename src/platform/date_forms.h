// Dates in the forms that the operator's platform writes them in.
//
// The forms are asked for on their own: the program's other numbers and texts keep to the one form
// of the data files, so the language of the C library is never switched.
#pragma once

#include <ctime>
#include <memory>
#include <string>

namespace platform {

class DateForms {
  public:
    // In the language of the operator, or in a given one, by the platform's name for it
    // ("de_DE.UTF-8", on Windows "de-DE"). A language that is not there gives the platform's
    // neutral forms.
    DateForms();
    explicit DateForms(const std::string& language);
    ~DateForms();

    // The short date: "10/27/26".
    std::string ShortDate(const std::tm& time) const;
    // The general form, short date and time of day: "10/27/26 14:05:09".
    std::string GeneralDate(const std::tm& time) const;

  private:
    class Native;
    std::unique_ptr<Native> native_;
};

// The system's bytes for a date as the platform writes it. Blanks that it has in several widths
// become plain ones and marks of writing direction go; empty when a character is not in the
// system's set.
std::string SystemDateText(const std::wstring& date);

}  // namespace platform
