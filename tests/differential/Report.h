#pragma once

#include "CDateTime.h"
#include "text/UtCString.h"

#include <concepts>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace differential {

/// The results of one section as a text file: blocks of lines, each line of fields with a tab between them. At the end
/// of a block stands its name, the number of its lines and a digest of them, so that every line counts although only
/// one in `writtenOneIn` is written. Numbers and bytes are written so that different ones never look alike.
class Report
{
public:
    Report(const std::filesystem::path& file, int writtenOneIn);
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    /// Adds a line to the block.
    template <typename... Fields> void Line(const Fields&... fields)
    {
        (Add(fields), ...);
        EndLine();
    }

    void EndBlock(std::string_view name);

    /// False when something could not be written.
    bool Close();

private:
    void Add(bool value) { AddText(value ? "true" : "false"); }
    void Add(std::integral auto value) { AddNumber(static_cast<int64_t>(value)); }
    void Add(double value);
    void Add(float value);
    void Add(const char* text) { AddBytes(text); }
    void Add(const std::string& bytes) { AddBytes(bytes); }
    void Add(std::string_view bytes) { AddBytes(bytes); }
    void Add(const UtCString& text);
    void Add(const CDateTime& date);

    void AddNumber(int64_t value);
    void AddBits(uint64_t bits);
    void AddBytes(std::string_view bytes);
    void AddText(std::string_view text);
    void EndLine();

    std::ofstream m_file;
    int m_writtenOneIn;
    int m_lines = 0; ///< of all blocks
    int m_linesOfBlock = 0;
    uint64_t m_digest;
    std::string m_line;
};

} // namespace differential
