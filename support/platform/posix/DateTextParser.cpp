#include "platform/posix/DateTextParser.h"

#include "platform/LocaleDate.h"

#include <algorithm>
#include <optional>

namespace platform {
namespace {

constexpr CalendarFields startOfDayZero = {1899, 12, 30, 0, 0, 0};

enum class TokenKind
{
    number,
    word,
    separator
};

struct Token
{
    TokenKind kind;
    std::wstring text;
    int value; ///< of a number
    bool afterBlank;
};

struct Number
{
    int value;
    size_t digits;

    bool CanOnlyBeYear() const { return digits > 2 || value > 31; }
};

struct Date
{
    int year;
    int month;
    int day;
};

bool IsDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}
bool IsBlank(wchar_t c)
{
    return c == L' ' || (c >= L'\t' && c <= L'\r') || c == L'\u00A0' || c == L'\u202F';
}
bool IsSeparator(wchar_t c)
{
    return std::wstring_view(L".,/-:").find(c) != std::wstring_view::npos;
}
bool IsWordCharacter(wchar_t c)
{
    return c != 0 && c != L'%' && !IsDigit(c) && !IsBlank(c) && !IsSeparator(c);
}

size_t RunLength(std::wstring_view text, bool (*belongs)(wchar_t))
{
    return static_cast<size_t>(std::find_if_not(text.begin(), text.end(), belongs) - text.begin());
}

// The dot of an abbreviation belongs to the word.
size_t WordLength(std::wstring_view text)
{
    size_t length = 0;
    while (length < text.size() && (IsWordCharacter(text[length]) || (length > 0 && text[length] == L'.')))
        ++length;
    return length;
}

std::optional<Token> FirstToken(std::wstring_view text)
{
    constexpr size_t mostDigits = 9;
    if (const size_t digits = RunLength(text, IsDigit)) {
        if (digits > mostDigits)
            return std::nullopt;
        std::wstring number(text.substr(0, digits));
        const int value = std::stoi(number);
        return Token{TokenKind::number, std::move(number), value, false};
    }
    if (IsSeparator(text.front()))
        return Token{TokenKind::separator, std::wstring(text.substr(0, 1)), 0, false};
    if (const size_t length = WordLength(text))
        return Token{TokenKind::word, std::wstring(text.substr(0, length)), 0, false};
    return std::nullopt;
}

bool Tokenize(std::wstring_view text, std::vector<Token>& tokens)
{
    constexpr size_t mostTokens = 32; // far more than any date has
    while (tokens.size() < mostTokens) {
        const size_t blanks = RunLength(text, IsBlank);
        text.remove_prefix(blanks);
        if (text.empty())
            return !tokens.empty();
        std::optional<Token> token = FirstToken(text);
        if (!token)
            return false;
        text.remove_prefix(token->text.size());
        token->afterBlank = blanks > 0;
        tokens.push_back(std::move(*token));
    }
    return false;
}

bool EqualIgnoringDots(std::wstring word, std::wstring name)
{
    std::erase(word, L'.');
    std::erase(name, L'.');
    return !word.empty() && word == name;
}

int CompletedYear(const Number& number)
{
    if (number.digits > 2)
        return number.value;
    return number.value + (number.value < 69 ? 2000 : 1900);
}

Date Arranged(const std::vector<Number>& numbers, DateOrder order)
{
    switch (order) {
    case DateOrder::dayMonthYear:
        return {CompletedYear(numbers[2]), numbers[1].value, numbers[0].value};
    case DateOrder::monthDayYear:
        return {CompletedYear(numbers[2]), numbers[0].value, numbers[1].value};
    case DateOrder::yearMonthDay:
        break;
    }
    return {CompletedYear(numbers[0]), numbers[1].value, numbers[2].value};
}

class Parser
{
public:
    Parser(std::vector<Token> tokens, const DateVocabulary& vocabulary, int currentYear)
        : m_tokens(std::move(tokens)), m_vocabulary(vocabulary), m_currentYear(currentYear)
    {
    }

    bool Run(uint32_t flags, CalendarFields& result)
    {
        while (m_position < m_tokens.size())
            if (!TakeTime() && !TakeDatePart())
                return false;
        const bool hasDate = !m_numbers.empty() || m_month != 0;
        const bool isUnwanted = (hasDate && (flags & timeOnly)) || (m_hasTime && (flags & dateOnly));
        CalendarFields fields = startOfDayZero;
        if (isUnwanted || (!hasDate && !m_hasTime) || (hasDate && !SetDate(fields)))
            return false;
        fields.hour = m_time.hour;
        fields.minute = m_time.minute;
        fields.second = m_time.second;
        result = fields;
        return true;
    }

private:
    const Token* Peek(size_t offset) const
    {
        return m_position + offset < m_tokens.size() ? &m_tokens[m_position + offset] : nullptr;
    }

    bool IsNumberAt(size_t offset) const { return Peek(offset) && Peek(offset)->kind == TokenKind::number; }
    bool IsWordAt(size_t offset) const { return Peek(offset) && Peek(offset)->kind == TokenKind::word; }
    bool IsSeparatorAt(size_t offset, wchar_t separator) const
    {
        return Peek(offset) && Peek(offset)->kind == TokenKind::separator && Peek(offset)->text[0] == separator;
    }

    bool IsWordAt(size_t offset, const std::wstring& localName, const wchar_t* englishName) const
    {
        return IsWordAt(offset) &&
               (EqualIgnoringDots(Peek(offset)->text, localName) || EqualIgnoringDots(Peek(offset)->text, englishName));
    }

    // Reads ":" and a number of up to two digits below 60.
    bool TakeSexagesimal(int& value)
    {
        if (!IsSeparatorAt(0, L':') || !IsNumberAt(1) || Peek(1)->text.size() > 2 || Peek(1)->value > 59)
            return false;
        value = Peek(1)->value;
        m_position += 2;
        return true;
    }

    void SkipFraction()
    {
        if ((IsSeparatorAt(0, L'.') || IsSeparatorAt(0, L',')) && IsNumberAt(1) && !Peek(1)->afterBlank)
            m_position += 2;
    }

    bool TakeTime()
    {
        if (m_hasTime || !IsNumberAt(0) || Peek(0)->text.size() > 2)
            return false;
        const size_t start = m_position;
        m_time.hour = m_tokens[m_position++].value;
        bool isTime = TakeSexagesimal(m_time.minute);
        if (isTime && TakeSexagesimal(m_time.second))
            SkipFraction();
        isTime = TakeHalfOfDay(isTime) && m_time.hour <= 23;
        if (!isTime) {
            m_time = {};
            m_position = start;
        }
        m_hasTime = isTime;
        return isTime;
    }

    // With AM or PM behind it, the hour alone is a time and counts from 12, 1 to 11.
    bool TakeHalfOfDay(bool hasMinutes)
    {
        const bool isPm = IsWordAt(0, m_vocabulary.pm, L"pm");
        if (!isPm && !IsWordAt(0, m_vocabulary.am, L"am"))
            return hasMinutes;
        ++m_position;
        if (m_time.hour < 1 || m_time.hour > 12)
            return false;
        m_time.hour = m_time.hour % 12 + (isPm ? 12 : 0);
        return true;
    }

    bool TakeDatePart()
    {
        switch (m_tokens[m_position].kind) {
        case TokenKind::number:
            return TakeDateNumber();
        case TokenKind::word:
            return TakeWord();
        case TokenKind::separator:
            break;
        }
        return TakeSeparator();
    }

    bool TakeDateNumber()
    {
        const Token& token = m_tokens[m_position++];
        if (token.text.size() == 8 && m_numbers.empty()) {
            m_numbers = {{token.value / 10000, 4}, {token.value / 100 % 100, 2}, {token.value % 100, 2}};
            return true;
        }
        m_numbers.push_back({token.value, token.text.size()});
        return m_numbers.size() <= 3;
    }

    bool TakeWord()
    {
        const std::wstring& word = m_tokens[m_position].text;
        const bool isIsoTimeMark = word == L"t" && m_numbers.size() == 3 && !m_hasTime && IsNumberAt(1);
        ++m_position;
        return isIsoTimeMark || TakeMonth(word) || IsIgnored(word);
    }

    bool TakeMonth(const std::wstring& word)
    {
        for (size_t index = 0; index < 12 && m_month == 0; ++index)
            if (EqualIgnoringDots(word, m_vocabulary.months[index]) ||
                EqualIgnoringDots(word, m_vocabulary.shortMonths[index])) {
                m_month = static_cast<int>(index) + 1;
                return true;
            }
        return false;
    }

    bool IsIgnored(const std::wstring& word) const
    {
        return std::any_of(m_vocabulary.ignoredWords.begin(), m_vocabulary.ignoredWords.end(),
                           [&word](const std::wstring& ignored) { return EqualIgnoringDots(word, ignored); });
    }

    // Between two parts, or behind the last one as in "5.3."; never first and never twice.
    bool TakeSeparator()
    {
        const bool isMisplaced = m_position == 0 || m_tokens[m_position - 1].kind == TokenKind::separator;
        const bool isColon = m_tokens[m_position].text == L":";
        const bool endsText = m_position + 1 == m_tokens.size();
        const bool mayEndText = m_tokens[m_position].text == L"." || m_tokens[m_position].text == L",";
        ++m_position;
        return !isMisplaced && !isColon && (!endsText || mayEndText);
    }

    bool SetDate(CalendarFields& fields) const
    {
        const std::optional<Date> date = m_month != 0 ? DateWithMonthName() : DateFromNumbers();
        if (!date || !IsCalendarDate(date->year, date->month, date->day))
            return false;
        fields.year = date->year;
        fields.month = date->month;
        fields.day = date->day;
        return true;
    }

    std::optional<Date> DateWithMonthName() const
    {
        if (m_numbers.size() == 1)
            return m_numbers[0].CanOnlyBeYear() ? Date{CompletedYear(m_numbers[0]), m_month, 1}
                                                : Date{m_currentYear, m_month, m_numbers[0].value};
        if (m_numbers.size() != 2)
            return std::nullopt;
        const size_t year = m_numbers[0].CanOnlyBeYear() ? 0 : 1;
        return Date{CompletedYear(m_numbers[year]), m_month, m_numbers[1 - year].value};
    }

    std::optional<Date> DateFromNumbers() const
    {
        if (m_numbers.size() == 3)
            return FirstExisting(m_numbers);
        if (m_numbers.size() != 2)
            return std::nullopt;
        if (m_numbers[0].CanOnlyBeYear())
            return Date{CompletedYear(m_numbers[0]), m_numbers[1].value, 1};
        if (m_numbers[1].CanOnlyBeYear())
            return Date{CompletedYear(m_numbers[1]), m_numbers[0].value, 1};
        const Number year = {m_currentYear, 4};
        return m_vocabulary.order == DateOrder::yearMonthDay ? FirstExisting({year, m_numbers[0], m_numbers[1]})
                                                             : FirstExisting({m_numbers[0], m_numbers[1], year});
    }

    // Only day and month may change places: a year that is moved would make a date out of any typing error.
    std::optional<Date> FirstExisting(const std::vector<Number>& numbers) const
    {
        const DateOrder written = numbers[0].CanOnlyBeYear() ? DateOrder::yearMonthDay : m_vocabulary.order;
        for (const DateOrder order : {written, DateOrder::dayMonthYear, DateOrder::monthDayYear})
            if (const Date date = Arranged(numbers, order); IsCalendarDate(date.year, date.month, date.day))
                return date;
        return std::nullopt;
    }

    struct TimeOfDay
    {
        int hour = 0;
        int minute = 0;
        int second = 0;
    };

    std::vector<Token> m_tokens;
    const DateVocabulary& m_vocabulary;
    int m_currentYear;
    size_t m_position = 0;
    std::vector<Number> m_numbers;
    int m_month = 0; ///< 0: no month name was found
    TimeOfDay m_time;
    bool m_hasTime = false;
};

// The position of the letter that ends a conversion such as "%-d" or "%EY".
template <class Character> size_t ConversionLetter(std::basic_string_view<Character> pattern, size_t percent)
{
    constexpr Character modifiers[] = {'E', 'O', '-', '_', '0', '^', '#', 0};
    return std::min(pattern.find_first_not_of(modifiers, percent + 1), pattern.size());
}

const char* FieldsOfConversion(char letter)
{
    switch (letter) {
    case 'd':
    case 'e':
        return "d";
    case 'm':
    case 'b':
    case 'B':
    case 'h':
        return "m";
    case 'y':
    case 'Y':
        return "y";
    case 'D':
        return "mdy";
    case 'F':
        return "ymd";
    default:
        return "";
    }
}

} // namespace

DateOrder OrderOfPattern(std::string_view pattern)
{
    std::string order;
    for (size_t position = 0; position < pattern.size(); ++position)
        if (pattern[position] == '%') {
            position = ConversionLetter(pattern, position);
            order += position < pattern.size() ? FieldsOfConversion(pattern[position]) : "";
        }
    const size_t day = order.find('d');
    const size_t month = order.find('m');
    const size_t year = order.find('y');
    if (std::max({day, month, year}) == std::string::npos || year < day)
        return DateOrder::yearMonthDay;
    return day < month ? DateOrder::dayMonthYear : DateOrder::monthDayYear;
}

std::vector<std::wstring> WordsOfPattern(std::wstring_view pattern)
{
    std::vector<std::wstring> words;
    for (size_t position = 0; position < pattern.size();) {
        if (pattern[position] == L'%') {
            position = ConversionLetter(pattern, position) + 1;
            continue;
        }
        const size_t length = WordLength(pattern.substr(position));
        if (length > 0)
            words.emplace_back(pattern.substr(position, length));
        position += std::max(length, size_t{1});
    }
    return words;
}

bool ParseDateText(std::wstring_view text, const DateVocabulary& vocabulary, int currentYear, uint32_t flags,
                   CalendarFields& result)
{
    std::vector<Token> tokens;
    return Tokenize(text, tokens) && Parser(std::move(tokens), vocabulary, currentYear).Run(flags, result);
}

} // namespace platform
