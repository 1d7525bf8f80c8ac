#include "sql/CopyText.h"

#include "sql/StatementBuilder.h"

namespace sql {

UtCString DumpFileStamp(int hour, int minute, int second) noexcept
{
    UtCString stamp(UT_ENCODING_UTF8);
    stamp.Format("%02d%02d%02d_tmp", hour, minute, second);
    return stamp;
}

UtCString DumpFileName(const UtCString& folder, const UtCString& table, const UtCString& stamp) noexcept
{
    return (StatementBuilder(UT_ENCODING_UTF8) << folder << table << "." << stamp).Take();
}

UtCString FlushForCopy(const UtCString& tables) noexcept
{
    return (StatementBuilder(UT_ENCODING_UTF8) << "FLUSH TABLES " << tables << ";").Take();
}

UtCString LockForReading(const UtCString& tables) noexcept
{
    const UtCString list = tables.replace("`, `", "` READ, `");
    if (list.IsEmpty())
        return UtCString(UT_ENCODING_UTF8);
    return (StatementBuilder(UT_ENCODING_UTF8) << "LOCK TABLES " << list << " READ;").Take();
}

UtCString CreateDatabase(const UtCString& database) noexcept
{
    return (StatementBuilder(UT_ENCODING_UTF8) << "CREATE DATABASE `" << database << "`").Take();
}

UtCString ShowCreateTable(const UtCString& database, const UtCString& table) noexcept
{
    return (StatementBuilder(UT_ENCODING_UTF8) << "SHOW CREATE TABLE `" << database << "`.`" << table << "`").Take();
}

UtCString CreateTableIn(const UtCString& database, const UtCString& createStatement) noexcept
{
    const UtCString beginning = (StatementBuilder(UT_ENCODING_UTF8) << "CREATE TABLE `" << database << "`.").Take();
    // KEPT K-157: wherever the words stand, in a comment or a default value too.
    return beginning.IsEmpty() ? beginning
                               : UtCString(createStatement, UT_ENCODING_UTF8).replace("CREATE TABLE ", beginning);
}

UtCString LoadDumpFile(const UtCString& fileName, const UtCString& database, const UtCString& table) noexcept
{
    const UtCString path = fileName.replace("\\", "/");
    if (path.IsEmpty())
        return UtCString(UT_ENCODING_UTF8);
    return (StatementBuilder(UT_ENCODING_UTF8)
            << "LOAD DATA LOCAL INFILE '" << path << "' INTO TABLE `" << database << "`.`" << table
            << "` FIELDS TERMINATED BY ',' ENCLOSED BY '\"' ESCAPED BY '\\\\' LINES TERMINATED BY '\\r\\n';")
        .Take();
}

} // namespace sql
