#include "CDateTime.h"

#include "datetime/DateFormat.h"
#include "datetime/DateText.h"
#include "framework/OleDate.h"
#include "platform/LocaleDate.h"

namespace {

UtCString FormattedText(const CDateTime& date, unsigned int selector)
{
    if (date.IsNull())
        return UtCString(selector == 8 ? "'0000-00-00'" : "");
    return datetime::Format(date.GetValue(), selector);
}

std::string_view WithoutTrailingWhiteSpace(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(" \t\n\v\f\r") + 1);
}

} // namespace

UtCString CDateTime::GetDate(unsigned int selector) const
try {
    const bool isLocaleForm = selector == 0 || selector > datetime::largestSelector;
    return isLocaleForm ? DateToStr() : FormattedText(*this, selector);
} catch (...) {
    return UtCString();
}

UtCString CDateTime::DateToStr() const
try {
    platform::CalendarFields fields;
    if (IsNull() || !framework::FieldsFromOleDate(m_value, fields))
        return UtCString();
    return UtCString(UtCString(platform::ShortDate(fields), UT_ENCODING_UTF8), UT_ENCODING_DEFAULT);
} catch (...) {
    return UtCString();
}

bool CDateTime::SetDate(const UtCString& text)
{
    SetNull();
    const auto fields = datetime::ReadDayMonthYear(UtCString(text, UT_ENCODING_DEFAULT).View());
    if (!fields)
        return false;
    // KEPT K-56: a day that the month does not have is reported as success; the status tells.
    SetDate(fields->year, fields->month, fields->day);
    return true;
}

bool CDateTime::ConvertDate(const UtCString& text)
try {
    SetNull();
    const auto fields = datetime::ReadCompact(UtCString(text, UT_ENCODING_DEFAULT).View());
    if (fields && framework::OleDateFromFields(*fields, m_value))
        m_status = valid;
    return m_status == valid;
} catch (...) {
    return false;
}

CDateTime CDateTime::ParseDate(const UtCString& text, unsigned long flags)
try {
    CDateTime date;
    date.SetNull();
    const UtCString utf8(text, UT_ENCODING_UTF8);
    const std::string_view trimmed = WithoutTrailingWhiteSpace(utf8.View());
    platform::CalendarFields fields;
    if (!trimmed.empty() && platform::ParseLocaleDate(trimmed, static_cast<uint32_t>(flags), fields) &&
        framework::OleDateFromFields(fields, date.m_value))
        date.m_status = valid;
    return date;
} catch (...) {
    CDateTime date;
    date.SetNull();
    return date;
}
