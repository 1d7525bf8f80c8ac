#include "client/LocalFiles.h"

#include "client/Handle.h"
#include "fake_client/FakeClientFixture.h"
#include "harness/FailingAllocations.h"
#include "unit/NewFolder.h"

#include <errmsg.h>

#include <cerrno>

namespace {

/// Reads local files as the client does, with the functions of a handle that the library has made.
class LocalFiles : public fake::ClientFixture
{
protected:
    struct Transfer
    {
        std::string bytes;
        int error = 0;
        std::string text;
    };

    Transfer Read(const std::string& name, unsigned int pieceSize = 4096, unsigned int textSize = 512)
    {
        const client::Handle handle = client::NewHandle();
        const auto& functions = handle->options;
        Transfer result;
        void* state = nullptr;
        int count = functions.local_infile_init(&state, name.c_str(), functions.local_infile_userdata) == 0 ? 0 : -1;
        std::string piece(pieceSize, '\0');
        while (count >= 0 && (count = functions.local_infile_read(state, piece.data(), pieceSize)) > 0)
            result.bytes.append(piece, 0, static_cast<size_t>(count));
        if (count < 0) {
            result.text.resize(textSize);
            result.error = functions.local_infile_error(state, result.text.data(), textSize);
            result.text.resize(result.text.find('\0'));
        }
        functions.local_infile_end(state);
        return result;
    }

    std::string Path(const char* name) const { return Utf8(m_folder / name); }

    NewFolder m_folder;
};

TEST_F(LocalFiles, ArriveWholeInPieces)
{
    std::string content;
    for (int i = 0; i < 10000; ++i)
        content += static_cast<char>(i % 256);
    std::ofstream(m_folder / "gr\xC3\xB6n", std::ios::binary) << content;
    for (const unsigned int pieceSize : {1U, 4096U, 10000U, 20000U}) {
        const Transfer result = Read(Path("gr\xC3\xB6n"), pieceSize);
        EXPECT_EQ(result.bytes, content) << pieceSize;
        EXPECT_EQ(result.error, 0);
    }
}

TEST_F(LocalFiles, MayBeEmpty)
{
    std::ofstream(m_folder / "empty").flush();
    const Transfer result = Read(Path("empty"));
    EXPECT_EQ(result.bytes, "");
    EXPECT_EQ(result.error, 0);
}

TEST_F(LocalFiles, ThatAreMissingFailWithNumberAndName)
{
    const Transfer result = Read(Path("missing"));
    EXPECT_EQ(result.error, ENOENT);
    EXPECT_EQ(result.text, "File '" + Path("missing") + "' not found (Errcode: 2)");
}

TEST_F(LocalFiles, FailWithATextThatFits)
{
    EXPECT_EQ(Read("missing", 4096, 8).text, "File 'm");
}

TEST_F(LocalFiles, AreNoFolders)
{
    const Transfer result = Read(Utf8(m_folder.Path()));
    EXPECT_NE(result.error, 0);
    EXPECT_NE(result.text.find(Utf8(m_folder.Path())), std::string::npos);
}

TEST_F(LocalFiles, FailWithoutMemory)
{
    const client::Handle handle = client::NewHandle();
    const std::string name = Path("missing");
    int result = 0;
    char text[512] = "";
    const long failures = harness::ForEachAllocation(true, [&] {
        void* state = nullptr;
        const int opened = handle->options.local_infile_init(&state, name.c_str(), nullptr);
        if (state == nullptr && opened != 0)
            result = handle->options.local_infile_error(state, text, sizeof text);
        handle->options.local_infile_end(state);
    });
    EXPECT_GT(failures, 0);
    EXPECT_EQ(result, CR_OUT_OF_MEMORY);
    EXPECT_STREQ(text, "Client run out of memory");
}

} // namespace
