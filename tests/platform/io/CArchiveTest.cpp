// Archives of values, and the classes whose objects they hold.
// SPDX-License-Identifier: MIT
#include <tuple>

#include <gmock/gmock.h>

#include <platform/io/CArchive.h>
#include <platform/io/CObject.h>

#include "TempFolder.h"

namespace orvo {
namespace {

using namespace std::string_literals;

struct CArchiveTest : testing::Test {
    // What the file holds after `store` has written to an archive.
    template <class Store>
    std::string Stored(Store store) {
        const std::string path = m_folder.Path("stored.dat");
        CFile file;
        EXPECT_TRUE(file.Open(path.c_str(), CFile::modeCreate | CFile::modeReadWrite));
        CArchive archive(&file, CArchive::store);
        store(archive);
        archive.Close();
        return TempFolder::Content(path);
    }

    // Opens a file of that content for a loading archive.
    CFile* Holding(const std::string& content) {
        const std::string path = m_folder.File("loaded.dat", content);
        m_file.Close();
        EXPECT_TRUE(m_file.Open(path.c_str(), CFile::modeRead));
        return &m_file;
    }

    template <class Value>
    CArchiveException::Cause CauseOfLoading(const std::string& content, Value& value) {
        CArchive archive(Holding(content), CArchive::load);
        try {
            archive >> value;
        } catch (const CArchiveException& error) {
            EXPECT_THAT(error.what(), testing::StartsWith(m_file.GetFilePath() + ": can't be"));
            return error.GetCause();
        }
        ADD_FAILURE() << "the value was read";
        return CArchiveException::genericException;
    }

    TempFolder m_folder;
    CFile m_file;
};

TEST_F(CArchiveTest, NumbersAreLittleEndianAndComeBack) {
    const std::string bytes = Stored([](CArchive& archive) {
        archive << std::uint8_t{0x12} << std::uint16_t{0x3456} << -2 << 0x89ABCDEFu;
        archive << -3L << 0xFFFFFFFFul << 1.5;
    });
    ASSERT_EQ(bytes,
              "\x12\x56\x34\xFE\xFF\xFF\xFF\xEF\xCD\xAB\x89"
              "\xFD\xFF\xFF\xFF\xFF\xFF\xFF\xFF\0\0\0\0\0\0\xF8\x3F"s);

    CArchive archive(Holding(bytes), CArchive::load);
    std::tuple<std::uint8_t, std::uint16_t, int, unsigned, long, unsigned long, double> read;
    std::apply([&](auto&... each) { (archive >> ... >> each); }, read);
    EXPECT_EQ(read, std::tuple(0x12, 0x3456, -2, 0x89ABCDEFu, -3L, 0xFFFFFFFFul, 1.5));
}

TEST_F(CArchiveTest, ANumberOfMoreThanFourBytesIsRefusedAndNothingIsStored) {
    const std::string bytes = Stored([](CArchive& archive) {
        EXPECT_THROW(archive << 0x80000000L, CArchiveException);
        EXPECT_THROW(archive << -0x80000001L, CArchiveException);
        EXPECT_THROW(archive << 0x100000000ul, CArchiveException);
    });
    EXPECT_EQ(bytes, "");
}

const std::tuple<const char*, int, std::string> kCounts[] = {
    {"empty", 0, "\0"s},
    {"the longest with one byte", 254, "\xFE"},
    {"the shortest with two bytes", 255, "\xFF\xFF\0"s},
    {"the longest with two bytes", 65533, "\xFF\xFD\xFF"},
    {"the shortest with four bytes", 65534, "\xFF\xFF\xFF\xFE\xFF\0\0"s},
    {"more than one part", 200000, "\xFF\xFF\xFF\x40\x0D\x03\0"s},
};

TEST_F(CArchiveTest, ATextIsItsCountAndItsBytes) {
    for (const auto& [why, length, head] : kCounts) {
        const CString text(std::string(static_cast<std::size_t>(length), '\xE9'));

        const std::string bytes = Stored([&](CArchive& archive) { archive << text; });

        EXPECT_EQ(bytes.substr(0, head.size()), head) << why;
        EXPECT_EQ(bytes.substr(head.size()), text.Bytes()) << why;
        CArchive archive(Holding(bytes), CArchive::load);
        CString read;
        archive >> read;
        EXPECT_TRUE(read == text) << why;
    }
}

TEST_F(CArchiveTest, ABrokenTextOrNumberThrowsAndLeavesTheOldOne) {
    using Error = CArchiveException;
    const std::tuple<const char*, std::string, Error::Cause> rows[] = {
        {"no count", "", Error::endOfFile},
        {"half a count", "\xFF\x10", Error::endOfFile},
        {"less than promised", "\x05two", Error::endOfFile},
        {"2 GB promised, 3 there", "\xFF\xFF\xFF\xFF\xFF\xFF\x7F..."s, Error::endOfFile},
        {"more than 2 GB promised", "\xFF\xFF\xFF\0\0\0\x80"s, Error::badValue},
        {"16-bit characters announced", "\xFF\xFE\xFF\x02"s, Error::badValue}};
    for (const auto& [why, bytes, cause] : rows) {
        CString text("old");
        EXPECT_EQ(CauseOfLoading(bytes, text), cause) << why;
        EXPECT_STREQ(text, "old") << why;
    }
    int number = 7;
    EXPECT_EQ(CauseOfLoading("\x01\x02\x03", number), Error::endOfFile);
    EXPECT_EQ(number, 7);
}

TEST_F(CArchiveTest, ReadAndWriteTakeMoreThanTheBufferHolds) {
    std::string content(100001, ' ');
    for (std::size_t i = 0; i < content.size(); ++i) content[i] = static_cast<char>(i % 251);

    EXPECT_EQ(Stored([&](CArchive& archive) { archive.Write(content.data(), content.size()); }),
              content);

    CArchive archive(Holding(content), CArchive::load, 1000);
    std::string read(content.size() + 5, ' ');
    EXPECT_EQ(archive.Read(read.data(), read.size()), content.size());
    EXPECT_EQ(read.substr(0, content.size()), content);
}

TEST_F(CArchiveTest, ClosingALoadingArchivePutsTheFileBehindTheLastValue) {
    CArchive archive(Holding("*rest"), CArchive::load);
    std::uint8_t byte = 0;
    archive >> byte;

    archive.Close();

    EXPECT_EQ(m_file.Seek(0, CFile::current), 1);
}

TEST_F(CArchiveTest, TheDestructorWritesTheRestUnlessItIsToldNotTo) {
    for (const unsigned drop : {0u, unsigned{CArchive::bNoFlushOnDelete}}) {
        const std::string path = m_folder.Path("rest.dat");
        ASSERT_TRUE(m_file.Open(path.c_str(), CFile::modeCreate | CFile::modeWrite));
        { CArchive(&m_file, CArchive::store | drop) << std::uint8_t{'x'}; }
        m_file.Close();
        EXPECT_EQ(TempFolder::Content(path), drop != 0 ? "" : "x");
    }
}

TEST_F(CArchiveTest, TheWrongDirectionAndAClosedArchiveAreRefused) {
    CArchive archive(Holding("12"), CArchive::load);
    EXPECT_THROW(archive << 1, CArchiveException);

    archive.Close();
    std::uint8_t byte = 0;
    EXPECT_THROW(archive >> byte, CArchiveException);
    EXPECT_THROW(archive.Flush(), CArchiveException);
    EXPECT_NO_THROW(archive.Close());
}

TEST_F(CArchiveTest, AFileThatTakesNothingFailsCloseOnceAndNeverTheDestructor) {
    ASSERT_TRUE(m_file.Open("/dev/full", CFile::modeWrite));
    {
        CArchive archive(&m_file, CArchive::store);
        archive << 1;
        EXPECT_THROW(archive.Close(), CFileException);
        EXPECT_NO_THROW(archive.Close());
    }
    EXPECT_NO_THROW({ CArchive(&m_file, CArchive::store) << 1; });
}

struct Shape : CObject {
    static const CRuntimeClass classShape;
    const CRuntimeClass* GetRuntimeClass() const override { return &classShape; }
};

struct Circle : Shape {
    static const CRuntimeClass classCircle;
    const CRuntimeClass* GetRuntimeClass() const override { return &classCircle; }
};

const CRuntimeClass Shape::classShape("Shape", 1, nullptr, &CObject::classCObject);
const CRuntimeClass Circle::classCircle(
    "Circle", 3, [] { return std::unique_ptr<CObject>(std::make_unique<Circle>()); },
    &Shape::classShape);

TEST(RuntimeClass, AClassWithAMakerIsMadeByItsNameWhileItIsThere) {
    {
        const CRuntimeClass passing("Passing", 1, Circle::classCircle.maker, nullptr);
        EXPECT_EQ(CRuntimeClass::Find("Passing"), &passing);
    }
    ASSERT_EQ(CRuntimeClass::Find("Circle"), &Circle::classCircle);
    EXPECT_EQ(Circle::classCircle.CreateObject()->GetRuntimeClass(), &Circle::classCircle);
    for (const char* name : {"Passing", "Shape", "CObject", "circle"}) {
        EXPECT_EQ(CRuntimeClass::Find(name), nullptr) << name;
    }
    EXPECT_EQ(Shape::classShape.CreateObject(), nullptr);
}

TEST(RuntimeClass, AnObjectIsOfItsClassAndOfAllItsBases) {
    const Circle circle;
    const Shape shape;

    EXPECT_TRUE(circle.IsKindOf(Circle::classCircle));
    EXPECT_TRUE(circle.IsKindOf(Shape::classShape));
    EXPECT_TRUE(circle.IsKindOf(CObject::classCObject));
    EXPECT_FALSE(shape.IsKindOf(Circle::classCircle));
    EXPECT_FALSE(CObject().IsKindOf(Shape::classShape));
}

}  // namespace
}  // namespace orvo
