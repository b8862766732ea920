#include "Document/Lumeq.h"
#include "Platform/Process.h"
#include "Platform/Text.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <string_view>

namespace
{

constexpr int YearsOfTm = 1900;
constexpr int FirstYearOfJapaneseCount = 1988;

/// Which numbers of a date stand in which order.
enum class DateOrder
{
    MonthDayYear,
    YearMonthDay,
    DayMonthShortYear,
    JapaneseYearMonthDay,
};

struct LanguageFormat
{
    std::wstring_view language;
    DateOrder order;
    const wchar_t* dateFormat;
    const wchar_t* timeFormat;
};

constexpr const wchar_t* FullTime = L"%.2d:%.2d:%.2d";
constexpr const wchar_t* TwelveHourTime = L"%d.%.2d%ls";
constexpr const wchar_t* TwelveHourTimeWithColon = L"%d:%.2d%ls";

constexpr LanguageFormat OtherLanguages = { L"", DateOrder::MonthDayYear, L"%.2d/%.2d/%.4d", FullTime };

constexpr std::array LanguageFormats = {
    LanguageFormat{ L"Chinese", DateOrder::MonthDayYear, L"%.2d/%.2d/%.4d", FullTime },
    LanguageFormat{ L"Korean", DateOrder::MonthDayYear, L"%.2d/%.2d/%.4d", FullTime },
    LanguageFormat{ L"Chinese-Simplified", DateOrder::YearMonthDay, L"%.4d/%.2d/%.2d", TwelveHourTimeWithColon },
    LanguageFormat{ L"Russian", DateOrder::DayMonthShortYear, L"%.2d/%.2d/%.2d", TwelveHourTime },
    LanguageFormat{ L"Spanish", DateOrder::DayMonthShortYear, L"%.2d/%.2d/%.2d", TwelveHourTime },
    LanguageFormat{ L"French", DateOrder::DayMonthShortYear, L"%.2d/%.2d/%.2d", TwelveHourTime },
    LanguageFormat{ L"German", DateOrder::DayMonthShortYear, L"%.2d.%.2d.%.2d", TwelveHourTime },
    LanguageFormat{ L"Japanese", DateOrder::JapaneseYearMonthDay, L"%.2d/%.2d/%.2d", FullTime },
};

const LanguageFormat& FormatOf(const std::string& language)
{
    const std::wstring name = Platform::FromCodePage(language);
    const auto* const found =
        std::find_if(LanguageFormats.begin(), LanguageFormats.end(),
                     [&name](const LanguageFormat& row) { return Platform::EqualsNoCase(row.language, name); });
    return found != LanguageFormats.end() ? *found : OtherLanguages;
}

template <typename... Arguments>
std::wstring Print(const wchar_t* format, Arguments... arguments)
{
    std::array<wchar_t, 64> text = {};
    const int length = std::swprintf(text.data(), text.size(), format, arguments...);
    return { text.data(), static_cast<std::size_t>(std::max(length, 0)) };
}

std::wstring DateText(const LanguageFormat& format, const std::tm& time)
{
    const int year = time.tm_year + YearsOfTm;
    const int month = time.tm_mon + 1;
    switch (format.order)
    {
    case DateOrder::MonthDayYear:
        return Print(format.dateFormat, month, time.tm_mday, year);
    case DateOrder::YearMonthDay:
        return Print(format.dateFormat, year, month, time.tm_mday);
    case DateOrder::DayMonthShortYear:
        return Print(format.dateFormat, time.tm_mday, month, year % 100);
    case DateOrder::JapaneseYearMonthDay:
        return Print(format.dateFormat, year - FirstYearOfJapaneseCount, month, time.tm_mday);
    }
    return {};
}

std::wstring TimeText(const LanguageFormat& format, const std::tm& time)
{
    if (format.timeFormat == FullTime)
    {
        return Print(format.timeFormat, time.tm_hour, time.tm_min, time.tm_sec);
    }
    const int hourOfHalfDay = time.tm_hour % 12 == 0 ? 12 : time.tm_hour % 12;
    return Print(format.timeFormat, hourOfHalfDay, time.tm_min, time.tm_hour < 12 ? L"am" : L"pm");
}

} // namespace

std::tm CurrentLocalTime()
{
    const std::time_t now = std::time(nullptr);
    const std::tm* const local = std::localtime(&now);
    return local != nullptr ? *local : std::tm{};
}

void CQOXRMLumeq::UpdateFileDetails(const std::string& path, const std::string& language)
{
    strCreatedBy = GetUserNameText();
    strCreatedOn = GetDateTimeStamp(language);
    strName = Platform::FromCodePage(path);
}

std::wstring CQOXRMLumeq::GetUserNameText() const
{
    return Platform::UserName();
}

std::wstring CQOXRMLumeq::GetDateTimeStamp(const std::string& language) const
{
    // One reading for both: no stamp of a day with the time of the next.
    const std::tm time = m_clock();
    const LanguageFormat& format = FormatOf(language);
    return DateText(format, time) + L" " + TimeText(format, time);
}

std::wstring CQOXRMLumeq::GetFormattedDate(const std::string& language) const
{
    return DateText(FormatOf(language), m_clock());
}

std::wstring CQOXRMLumeq::GetFormattedTime(const std::string& language) const
{
    return TimeText(FormatOf(language), m_clock());
}
