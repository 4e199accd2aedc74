#include "platform/date_forms.h"

#include <windows.h>

namespace platform {
namespace {

SYSTEMTIME FieldsOf(const std::tm& time) {
    SYSTEMTIME fields = {};
    fields.wYear = static_cast<WORD>(time.tm_year + 1900);
    fields.wMonth = static_cast<WORD>(time.tm_mon + 1);
    fields.wDay = static_cast<WORD>(time.tm_mday);
    fields.wHour = static_cast<WORD>(time.tm_hour);
    fields.wMinute = static_cast<WORD>(time.tm_min);
    fields.wSecond = static_cast<WORD>(time.tm_sec);
    return fields;
}

}  // namespace

class DateForms::Native {
  public:
    explicit Native(const std::string& language) : name_(language.begin(), language.end()) {
        if (!name_.empty() && !IsValidLocaleName(name_.c_str())) name_ = LOCALE_NAME_INVARIANT;
        useUser_ = language.empty();
    }

    std::string Date(const std::tm& time) const {
        const SYSTEMTIME fields = FieldsOf(time);
        wchar_t buffer[200] = L"";
        GetDateFormatEx(Name(), DATE_SHORTDATE, &fields, nullptr, buffer, 200, nullptr);
        const std::string result = SystemDateText(buffer);
        if (!result.empty()) return result;
        GetDateFormatEx(LOCALE_NAME_INVARIANT, 0, &fields, L"yyyy-MM-dd", buffer, 200, nullptr);
        return SystemDateText(buffer);
    }

    std::string Time(const std::tm& time) const {
        const SYSTEMTIME fields = FieldsOf(time);
        wchar_t buffer[200] = L"";
        GetTimeFormatEx(Name(), 0, &fields, nullptr, buffer, 200);
        const std::string result = SystemDateText(buffer);
        if (!result.empty()) return result;
        GetTimeFormatEx(LOCALE_NAME_INVARIANT, 0, &fields, L"HH:mm:ss", buffer, 200);
        return SystemDateText(buffer);
    }

  private:
    // Of the operator's own language the forms are those that he has set himself.
    const wchar_t* Name() const { return useUser_ ? LOCALE_NAME_USER_DEFAULT : name_.c_str(); }

    std::wstring name_;
    bool useUser_ = false;
};

DateForms::DateForms() : DateForms(std::string()) {}
DateForms::DateForms(const std::string& language) : native_(std::make_unique<Native>(language)) {}
DateForms::~DateForms() = default;

std::string DateForms::ShortDate(const std::tm& time) const {
    return native_->Date(time);
}

std::string DateForms::GeneralDate(const std::tm& time) const {
    return native_->Date(time) + " " + native_->Time(time);
}

}  // namespace platform
