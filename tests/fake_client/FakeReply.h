#pragma once

#include <mysql.h>

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

// What the scripted server answers: columns, rows and the outcome of one statement. Plain values.
namespace fake {

/// One column value as bytes; nullopt is SQL NULL. Zero bytes are kept.
using Value = std::optional<std::string>;
using Row = std::vector<Value>;

/// One column description; becomes a MYSQL_FIELD. Fill what the test is about, for example
/// `Field{.name = "ID", .type = MYSQL_TYPE_LONG, .flags = PRI_KEY_FLAG | NOT_NULL_FLAG, .length = 11}`.
struct Field
{
    std::string name = {};
    std::optional<std::string> orgName =
        {}; ///< nullopt: the same as name; "" is what the server gives for an expression
    enum_field_types type = MYSQL_TYPE_VAR_STRING;
    unsigned int flags = 0;
    unsigned long length = 0;
    unsigned int decimals = 0;
    unsigned int charsetnr = 45; ///< 45 is utf8mb4_general_ci, 63 binary (what the server gives for numbers and blobs)
    std::optional<std::string> def = {}; ///< default value; only a field listing carries one (def_length stays 0 there)
    std::string table = {};
    std::string db = {};
};

/// Text columns of the given names, for replies whose column types do not matter.
std::vector<Field> TextFields(const std::vector<std::string>& names);

/// The outcome of one statement.
class Reply
{
public:
    /// A statement without rows succeeds. An empty `info` makes mysql_info give null.
    static Reply Ok(unsigned long long affectedRows = 0, unsigned long long insertId = 0, std::string info = {});
    /// A statement with rows succeeds. Every row needs as many values as there are fields.
    static Reply Rows(std::vector<Field> fields, std::vector<Row> rows);
    /// Rows of text columns.
    static Reply Rows(std::initializer_list<std::string> names, std::vector<Row> rows);
    /// mysql_real_query fails. An empty text becomes the client's own text for the number.
    static Reply Error(unsigned int code, std::string text = {});
    /// mysql_real_query succeeds; mysql_store_result and mysql_use_result give null with this error.
    static Reply ErrorAtResult(unsigned int code, std::string text = {});

    /// The connection breaks behind the first `rowCount` rows: a streamed result gives that many rows and then a null
    /// row with this error; mysql_store_result gives null with this error.
    Reply CutAfter(size_t rowCount, unsigned int code = 2013, std::string text = {}) const;

    unsigned long long affectedRows = 0;
    unsigned long long insertId = 0;
    std::string info;
    std::vector<Field> fields; ///< empty: a statement without rows
    std::vector<Row> rows;
    unsigned int queryErrorCode = 0;
    unsigned int resultErrorCode = 0;
    unsigned int rowErrorCode = 0;
    size_t rowErrorAfter = 0;
    std::string errorText;
};

} // namespace fake
