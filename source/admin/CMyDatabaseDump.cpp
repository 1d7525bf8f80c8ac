#include "CMyDatabase.h"

#include "admin/DumpFile.h"
#include "client/ErrorText.h"
#include "client/Result.h"
#include "connection/UserInterface.h"
#include "framework/CWnd.h"
#include "framework/OutputFile.h"
#include "platform/TickCount.h"
#include "sql/SelectStatement.h"
#include "text/UtCStringList.h"
#include "text/UtCUtf8.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace {

constexpr long failed = -1;

constexpr const char* writeFailure =
    "Es konnten nicht alle Daten in die Datei %s auf dem Server %s geschrieben werden.\nStellen Sie sicher, dass auf "
    "dem Server %s die neusten Servicepacks installiert sind.";

/// Tells a progress bar of the rows, a hundredth of its range at a time.
class RowProgress
{
public:
    explicit RowProgress(CProgressCtrl* bar) : m_bar(bar)
    {
        constexpr int smallestStep = 100;
        int lower = 0;
        int upper = 0;
        if (bar)
            bar->GetRange(lower, upper);
        m_step = static_cast<uint32_t>(std::max(upper / 100, smallestStep));
    }
    void CountRow()
    {
        ++m_rows;
        if (++m_rowsInStep < m_step)
            return;
        m_rowsInStep = 0;
        Advance(m_step);
    }
    void Finish() { Advance(m_rowsInStep); }
    long Rows() const noexcept
    {
        return static_cast<long>(std::min<uint64_t>(m_rows, std::numeric_limits<int32_t>::max()));
    }

private:
    void Advance(uint32_t rows)
    {
        if (m_bar)
            m_bar->SendMessage(PBM_DELTAPOS, rows);
    }

    CProgressCtrl* m_bar;
    uint32_t m_step;
    uint32_t m_rowsInStep = 0;
    uint64_t m_rows = 0;
};

int Send(MYSQL* handle, const UtCString& statement)
{
    const char* bytes = statement.string();
    if (statement.GetEncodingType() == UT_ENCODING_UTF8)
        bytes = UtCUtf8::SkipBOM(bytes);
    return mysql_real_query(handle, bytes, static_cast<unsigned long>(std::strlen(bytes)));
}

/// Copies the rows into the file. False when the connection was lost before their end.
bool CopyRows(MYSQL* handle, MYSQL_RES* result, admin::DumpFile& file, RowProgress& progress)
{
    const unsigned int count = mysql_num_fields(result);
    while (MYSQL_ROW row = mysql_fetch_row(result)) {
        file.AddRow(row, mysql_fetch_lengths(result), count);
        progress.CountRow();
    }
    return client::ErrorNumber(handle) == 0;
}

/// Ends a file without asking what has become of it; does nothing after a Close. The framework's own file would close
/// itself and throw, in a destructor.
class AbortAtEnd
{
public:
    explicit AbortAtEnd(CFile& file) noexcept : m_file(file) {}
    AbortAtEnd(const AbortAtEnd&) = delete;
    AbortAtEnd& operator=(const AbortAtEnd&) = delete;
    ~AbortAtEnd() { m_file.Abort(); }

private:
    CFile& m_file;
};

void ShowWriteFailure(const UtCString& fileName, const UtCString& host)
{
    UtCString text;
    text.FormatStringList(writeFailure, {fileName, host, host});
    connection::UserInterface().ShowMessage(text, MYDB_MESSAGE_ERROR);
}

} // namespace

/// The rest of a dump whose statement has been sent: the rows into the file, in the order that a host sees.
struct CMyDatabase::DumpJob
{
    const UtCString& fileName;
    CFile& file;
    const sql::DumpFormat& format;
    bool hasHeader;
    RowProgress progress;
};

long CMyDatabase::DumpTable(const UtCString& fileName, const UtCString& tableName, bool header,
                            const UtCString& statement, const UtCString& separator, const UtCString& enclosure,
                            const UtCString& lineEnd, CProgressCtrl* progress)
{
    try {
        CFile file;
        if (!framework::CreateFileToWrite(file, fileName))
            return failed;
        const AbortAtEnd end(file);
        const sql::DumpFormat format = sql::ReadDumpFormat(separator, enclosure, lineEnd, m_server.GetEncodingType());
        DumpJob job{fileName, file, format, header, RowProgress(progress)};
        // KEPT K-150: the table name is not quoted.
        return DumpStatement(statement.IsEmpty() ? sql::SelectAll(tableName, tableName.GetEncodingType()) : statement,
                             job);
    } catch (...) {
        if (m_errorCode == 0)
            RecordOutOfMemory();
        m_queryTime = 0;
        return failed;
    }
}

long CMyDatabase::DumpStatement(UtCString statement, DumpJob& job)
{
    if (statement.IsEmpty())
        throw std::bad_alloc();
    if (!m_handle && !(Open(false, UtCString()) && m_handle))
        return failed;
    m_queryTime = platform::TickCount();
    m_errorMessage.SetEmpty();
    m_errorCode = 0;
    if (Send(m_handle, statement) != 0)
        return FailDump();
    const long rows = DumpRows(job);
    if (rows < 0)
        m_queryTime = 0;
    return rows;
}

long CMyDatabase::DumpRows(DumpJob& job)
{
    client::Result result(mysql_use_result(m_handle));
    if (!result)
        return client::ErrorNumber(m_handle) != 0 ? FailDump() : failed;
    try {
        admin::DumpFile lines(job.file, job.format, m_handle);
        if (job.hasHeader)
            lines.AddHeader(result.get());
        if (!CopyRows(m_handle, result.get(), lines, job.progress))
            return FailDump();
        lines.WriteOut();
        result.reset();
        job.progress.Finish();
        m_queryTime = platform::TickCount() - static_cast<uint32_t>(m_queryTime);
        job.file.Close(); // checked: a full disk may show only now
        return job.progress.Rows();
    } catch (CFileException* failure) {
        failure->Delete();
        ShowWriteFailure(job.fileName, m_server.GetHost());
        return failed;
    }
}

long CMyDatabase::FailDump()
{
    RecordClientError();
    m_queryTime = 0;
    return failed;
}
