#pragma once

#include "CDateTime.h"
#include "MyDbExport.h"
#include "framework/Guid.h"
#include "text/UtCString.h"
#include "text/UtCStringList.h"

#include <string_view>
#include <type_traits>

class CMyRecordSet;

/// Conditions (column, operator, value) that become the text of a WHERE or ORDER BY clause of a record set's table.
///
///     CMyKey key("NAME", "O'Neil", "=");
///     key.Add("AGE", 30, ">").Add("DELETED_AT", CDateTime(), "=");
///     key.CreateClause(&customers);
///     // (`CUSTOMER`.`NAME` = 'O\'Neil') AND (`CUSTOMER`.`AGE` > 30) AND (`CUSTOMER`.`DELETED_AT` IS NULL)
///
/// A key is a list of texts, three per condition in the order in which they were added: the column's name in upper
/// case, the operator as it was given ("=" for an empty one), the value as text. Each text keeps its encoding. The same
/// column may occur several times. Values become texts when they are added; whether one stands between apostrophes is
/// decided by the type of the column when the clause is made.
///
/// What a key protects and what not:
/// - A value for a text, blob, memo or date-time column cannot leave its apostrophes: backslashes, apostrophes and
///   double quotes in it are escaped with backslashes. The escaping does not know the connection (K-86): in the mode
///   NO_BACKSLASH_ESCAPES, and in the character sets gbk, big5, cp932, sjis and gb18030, it protects nothing. Escape
///   there with CMyDatabase::MakeEscapeString and write the condition yourself.
/// - A zero byte in a value ends the statement there, and the server refuses it (error 1064).
/// - A value for a column of another type is written as it is (K-85): "0) OR (1=1" for a number column addresses all
///   rows. Add numbers as numbers, or check the text.
/// - Operators are written as they are. They come from the program, never from a user.
/// - Names are not escaped. A column that the table does not have, or a name with a backtick, gives a failure text; so
///   does, on a connection that speaks UTF-8 or UTF-16, a column with a name beyond ASCII (K-28).
///
/// Nothing throws. When memory runs out while a condition is added or a key is copied, the key becomes incomplete: it
/// keeps the conditions that it has, is not empty, and CreateClause gives a failure text, so that no statement
/// addresses more rows than were meant. Clear, and the assignment of a complete key, end that.
class MYDB_EXPORT CMyKey : public UtCStringList
{
public:
    CMyKey(); ///< empty
    CMyKey(const CMyKey& other);
    CMyKey& operator=(const CMyKey& other); ///< the key itself: changes nothing

    // A key with one condition, as Add makes it.
    CMyKey(const UtCString& field, const UtCString& value, const UtCString& op);
    CMyKey(const UtCString& field, const char* value, const UtCString& op);
    CMyKey(const UtCString& field, int value, const UtCString& op);
    CMyKey(const UtCString& field, long value, const UtCString& op);
    CMyKey(const UtCString& field, unsigned long value, const UtCString& op);
    CMyKey(const UtCString& field, _GUID value, const UtCString& op);
    template <class T>
    requires(!std::is_same_v<std::remove_cv_t<T>, char>) CMyKey(const UtCString& field, T* value, const UtCString& op)
    = delete;
    ~CMyKey();

    // Each of these appends one condition and returns the key, so that calls can be chained. The arguments may be items
    // of the key itself. CreateClause makes a test for NULL of the value "null" (K-82, K-83).

    /// A text, escaped with backslashes: backslash, apostrophe and double quote.
    ///
    /// With an operator that begins with "LIKE", in any letter case, "_" is escaped too, so that it stands for itself;
    /// "%" keeps its meaning. A value that then begins with a backslash gets four for each of its backslashes and finds
    /// them; in one that does not, a backslash gets two, which LIKE takes for an escape of its own and does not find
    /// (K-81). "NOT LIKE" is no "LIKE" here: in its values "_" is a wildcard.
    CMyKey& Add(const UtCString& field, const UtCString& value, const UtCString& op);
    CMyKey& Add(const UtCString& field, const char* value, const UtCString& op); ///< encoding 256; null is ""
    /// "2024-03-05 14:07:09", a time without date "14:07:09", a date at midnight "2024-03-05"; "null" for a value that
    /// IsNull.
    CMyKey& Add(const UtCString& field, const CDateTime& value, const UtCString& op);
    CMyKey& Add(const UtCString& field, short value, const UtCString& op); ///< decimal, as int and long
    CMyKey& Add(const UtCString& field, int value, const UtCString& op);
    CMyKey& Add(const UtCString& field, long value, const UtCString& op); ///< beyond 32 bits: the number as it is
    /// As long. A negative 32-bit number that was cast reads as that type's 32 bits: -1 is "4294967295" (K-61).
    CMyKey& Add(const UtCString& field, unsigned long value, const UtCString& op);
    /// Rounded to four decimals, without trailing zeros: 2.5 is "2.5", 3.0 is "3", 0.123456 is "0.1235", -0.0 is "-0".
    /// Infinity and what is not a number are "inf", "-inf" and "nan", which the server refuses for number columns.
    CMyKey& Add(const UtCString& field, double value, const UtCString& op);
    /// "{6b29fc40-ca47-1067-b31d-00dd010662da}", in lower case; "null" for the all-zero GUID.
    CMyKey& Add(const UtCString& field, _GUID value, const UtCString& op);
    CMyKey& Add(const UtCString& field, bool value, const UtCString& op); ///< "TRUE" or "FALSE"
    template <class T>
    requires(!std::is_same_v<std::remove_cv_t<T>, char>) CMyKey& Add(
        const UtCString& field, T* value, const UtCString& op) = delete; ///< a pointer is no bool

    void Clear();         ///< removes all conditions
    bool IsEmpty() const; ///< without conditions; false for an incomplete key
    /// The number of items, which is three per condition (K-80): divide by three for the number of conditions.
    int GetFieldCount() const;

    // The parts of the n-th condition, counted from 0; empty out of range.
    UtCString GetFieldName(int n) const;
    UtCString GetOperator(int n) const;
    UtCString GetFieldValue(int n) const; ///< as text, escaped, without apostrophes around it
    UtCString GetFirstFieldName() const;  ///< empty for an empty key

    /// The conditions as text, without the word WHERE, in the encoding of the record set's connection (256 without
    /// one): one comparison in parentheses per condition, joined by AND. Asks the server for the table's columns, over
    /// the record set's connection, when the table cache does not know them; it cannot while a stream is being read,
    /// and the columns count as unknown then.
    ///
    /// A value that is "null" in any letter case makes IS NULL with the operator "=" and IS NOT NULL with every other,
    /// which is not written then.
    ///
    /// Empty for an empty key and for a null record set. A failure is reported by the text alone (K-84), which stands
    /// in place of the clause and which a server refuses: as an unknown column (error 1054), or with another error for
    /// a name that is no plain one:
    /// - CMyKey_CreateClause_No_Tablename: the record set has no table;
    /// - CMyKey_CreateClause_Field_Not_Exist_TABLE_FIELD: the table does not have this column, the table itself is
    ///   unknown, or one of the names contains a backtick;
    /// - CMyKey_CreateClause_Fail, in encoding 256: memory ran out, the key is incomplete or the number of its items is
    ///   not divisible by three, or UTF-16 would have to be mixed with bytes that are no UTF-16.
    UtCString CreateClause(const CMyRecordSet* recordSet) const;

    /// The columns as text, without the words ORDER BY, in the same encoding: TABLE.FIELD, separated by commas, each
    /// followed by DESC when its operator begins with "<". Values do not matter. Names are not quoted, and one unknown
    /// column makes the whole text empty (K-87). Empty, too, for every other failure.
    UtCString CreateOrderClause(const CMyRecordSet* recordSet) const;

protected:
    /// Appends a condition with a value that already is in its final form. When the value is longer than one character
    /// and begins and ends with an apostrophe, or with a double quote, these two are removed.
    void Append(const UtCString& field, const UtCString& value, const UtCString& op);

private:
    CMyKey& AddEscaped(const UtCString& field, std::string_view value, eUtEncodingType encoding, const UtCString& op);
    CMyKey& AddRendered(const UtCString& field, UtCString&& value, const UtCString& op);
    void Store(const UtCString& field, UtCString&& value, const UtCString& op);
    UtCString ItemOf(int condition, int part) const;
    bool HasWholeConditions() const noexcept;
    size_t ClauseSize(const UtCString& table, eUtEncodingType encoding) const noexcept;

    bool m_isIncomplete = false; ///< a condition was lost
};
