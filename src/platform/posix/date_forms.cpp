#include "platform/date_forms.h"

#include <locale.h>
#include <wchar.h>

namespace platform {

class DateForms::Native {
  public:
    explicit Native(const char* language) : locale_(newlocale(LC_ALL_MASK, language, nullptr)) {
        if (locale_ == nullptr) locale_ = newlocale(LC_ALL_MASK, "C", nullptr);
    }
    ~Native() { freelocale(locale_); }
    Native(const Native&) = delete;
    Native& operator=(const Native&) = delete;

    std::string Text(const std::tm& time, const wchar_t* form, const wchar_t* plainForm) const {
        const std::string result = SystemDateText(Wide(time, form));
        return result.empty() ? SystemDateText(Wide(time, plainForm)) : result;
    }

  private:
    // In wide characters, which are Unicode whatever the character set of the language's own name.
    std::wstring Wide(const std::tm& time, const wchar_t* form) const {
        wchar_t buffer[200];
        return {buffer, wcsftime_l(buffer, std::size(buffer), form, &time, locale_)};
    }

    locale_t locale_;
};

DateForms::DateForms() : DateForms(std::string()) {}  // the empty name is the operator's language
DateForms::DateForms(const std::string& language)
    : native_(std::make_unique<Native>(language.c_str())) {}
DateForms::~DateForms() = default;

std::string DateForms::ShortDate(const std::tm& time) const {
    return native_->Text(time, L"%x", L"%Y-%m-%d");
}

std::string DateForms::GeneralDate(const std::tm& time) const {
    return native_->Text(time, L"%x %X", L"%Y-%m-%d %H:%M:%S");
}

}  // namespace platform
