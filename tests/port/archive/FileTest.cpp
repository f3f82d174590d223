// CFile over the file system and CMemFile in memory.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "ArchiveTestClasses.h"
#include "support/ArchiveRoundTrip.h"
#include "port/TextConversion.h"
#include "support/TempFolder.h"

namespace {

class FileTest : public ::testing::Test {
protected:
    CString PathOf(const char* name) const {
        return CString(port::NarrowToWide(m_folder.File(name)));
    }
    TempFolder m_folder;
};

template <typename Thrower> int FileFailure(Thrower thrower) {
    try {
        thrower();
    } catch (CFileException* e) {
        const int cause = e->m_cause;
        e->Delete();
        return cause;
    }
    return -1;
}

} // namespace

TEST_F(FileTest, MissingFileAnswersOrThrowsFileNotFound) {
    CFile file;
    CFileException error;
    EXPECT_FALSE(file.Open(PathOf("missing.bin"), CFile::modeRead, &error));
    EXPECT_EQ(error.m_cause, CFileException::fileNotFound);
    EXPECT_EQ(error.m_lOsError, ENOENT);
    EXPECT_EQ(error.m_strFileName, PathOf("missing.bin"));
    EXPECT_EQ(FileFailure([&] { CFile opened(PathOf("missing.bin"), CFile::modeRead); }),
              CFileException::fileNotFound);
    EXPECT_EQ(FileFailure([&] { CFile opened(PathOf("no/such/dir.bin"), CFile::modeCreate); }),
              CFileException::badPath);
    EXPECT_FALSE(file.Open(CString(port::NarrowToWide(m_folder.Path())), CFile::modeRead, &error));
    EXPECT_EQ(error.m_cause, CFileException::accessDenied);
}

TEST_F(FileTest, ReadWriteSeekAndLength) {
    CFile file(PathOf("a.bin"), CFile::modeCreate | CFile::modeReadWrite | CFile::typeBinary);
    EXPECT_EQ(file.GetFileName(), L"a.bin");
    EXPECT_EQ(file.GetFilePath(), PathOf("a.bin"));
    file.Write("hello", 5);
    EXPECT_EQ(file.GetLength(), 5u);
    EXPECT_EQ(file.GetPosition(), 5u);
    EXPECT_EQ(file.Seek(1, CFile::begin), 1u);
    char buffer[8] = {};
    EXPECT_EQ(file.Read(buffer, 8), 4u);
    EXPECT_STREQ(buffer, "ello");
    EXPECT_EQ(file.Read(buffer, 8), 0u);
    file.SetLength(2);
    EXPECT_EQ(file.SeekToEnd(), 2u);
    EXPECT_EQ(file.Seek(-1, CFile::current), 1u);
    EXPECT_EQ(FileFailure([&] { file.Seek(-10, CFile::current); }), CFileException::badSeek);
    file.Close();
    EXPECT_EQ(FileFailure([&] { file.Write("x", 1); }), CFileException::invalidFile);
}

TEST_F(FileTest, CreateTruncatesUnlessNoTruncate) {
    {
        CFile file(PathOf("b.bin"), CFile::modeCreate | CFile::modeWrite);
        file.Write("abcdef", 6);
    }
    {
        CFile file(PathOf("b.bin"), CFile::modeCreate | CFile::modeNoTruncate | CFile::modeWrite);
        EXPECT_EQ(file.GetLength(), 6u);
    }
    CFile file(PathOf("b.bin"), CFile::modeCreate | CFile::modeWrite);
    EXPECT_EQ(file.GetLength(), 0u);
}

TEST_F(FileTest, ArchiveOverADiskFile) {
    {
        CFile file(PathOf("doc.bin"), CFile::modeCreate | CFile::modeWrite);
        CArchive ar(&file, CArchive::store);
        for (int i = 0; i < 3000; ++i)
            ar << i << CString(L"é");
        ar.Close();
    }
    CFile file(PathOf("doc.bin"), CFile::modeRead);
    EXPECT_EQ(file.GetLength(), 3000u * (4 + 6));
    CArchive ar(&file, CArchive::load);
    for (int i = 0; i < 3000; ++i) {
        int v;
        CString text;
        ar >> v >> text;
        ASSERT_EQ(v, i);
        ASSERT_EQ(text, L"é");
    }
    EXPECT_EQ(LoadCause(Bytes(),
                        [](CArchive& inner) {
                            BYTE b;
                            inner >> b;
                        }),
              CArchiveException::endOfFile);
}

TEST(MemFile, GrowsAndReadsBack) {
    CMemFile file(16);
    Bytes data(3000);
    for (size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<BYTE>(i);
    file.Write(data.data(), 1000);
    file.Write(data.data() + 1000, 2000);
    EXPECT_EQ(file.GetLength(), 3000u);
    EXPECT_EQ(file.GetPosition(), 3000u);
    file.SeekToBegin();
    Bytes back(3100);
    EXPECT_EQ(file.Read(back.data(), 3100), 3000u);
    back.resize(3000);
    EXPECT_EQ(back, data);
    // Writing after a seek past the end fills the gap with zeros.
    file.Seek(3002, CFile::begin);
    file.Write("z", 1);
    EXPECT_EQ(file.GetLength(), 3003u);
    file.Seek(-3, CFile::end);
    BYTE tail[3];
    EXPECT_EQ(file.Read(tail, 3), 3u);
    EXPECT_EQ(Bytes(tail, tail + 3), Hex("00 00 7A"));
    EXPECT_EQ(FileFailure([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
    file.SetLength(10);
    EXPECT_EQ(file.GetLength(), 10u);
    EXPECT_EQ(file.GetPosition(), 10u);
}

TEST(MemFile, AttachedFixedBufferCannotGrow) {
    BYTE buffer[4] = {1, 2, 3, 4};
    CMemFile file(buffer, sizeof buffer);
    EXPECT_EQ(file.GetLength(), 4u);
    BYTE back[4] = {};
    EXPECT_EQ(file.Read(back, 4), 4u);
    EXPECT_EQ(back[3], 4);
    file.SeekToBegin();
    file.Write("\x09", 1);
    EXPECT_EQ(buffer[0], 9);
    file.SeekToEnd();
    EXPECT_TRUE(ThrowsMfc<CMemoryException>([&] { file.Write("x", 1); }));
    EXPECT_EQ(file.Detach(), buffer);
    EXPECT_EQ(file.GetLength(), 0u);
}

TEST(MemFile, DetachHandsOverTheBuffer) {
    CMemFile file;
    file.Write("abc", 3);
    BYTE* p = file.Detach();
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(p[2], 'c');
    std::free(p);
    EXPECT_EQ(file.GetLength(), 0u);
    file.Write("d", 1);
    EXPECT_EQ(file.GetLength(), 1u);
}
