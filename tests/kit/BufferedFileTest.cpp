// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/BufferedFile.h"

#include "tests/support/Exceptions.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace kit {
namespace {

using geom::test::Caught;

class BufferedFile : public testing::Test {
protected:
    ~BufferedFile() override { std::filesystem::remove(path); }

    std::string Content() const {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    const std::string path = testing::TempDir() + "kit_" + test + "_caf\xC3\xA9.tmp";
    const GString name{path.c_str()};
};

// Checks that an Exception of module "Kit" names the file.
template <typename Call>
void ExpectFileError(Call call, const std::string& path) {
    const auto e = Caught(call);
    if (e) {
        EXPECT_EQ(e->Module(), GString("Kit"));
        EXPECT_EQ(e->File(), GString("BufferedFile"));
        EXPECT_NE(e->Message().Narrow().find(path), std::string::npos) << e->Message().Narrow();
    }
}

TEST_F(BufferedFile, IsClosedAtFirst) {
    CBufferedFile file;
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(file.GetStream(), nullptr);
    EXPECT_EQ(file.GetFileName(), GString());
    file.Close();
    file.Flush();
}

TEST_F(BufferedFile, OpensWritesAndReadsThroughItsStream) {
    CBufferedFile file(name, "wb");
    ASSERT_TRUE(file.IsOpen());
    EXPECT_EQ(file.GetFileName(), name);
    std::fputs("hello\n", file.GetStream());
    file.Close();
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(file.GetFileName(), name);
    EXPECT_EQ(Content(), "hello\n");

    file.Open(name, L"rb");
    char text[16] = {};
    EXPECT_NE(std::fgets(text, sizeof text, file.GetStream()), nullptr);
    EXPECT_STREQ(text, "hello\n");
}

TEST_F(BufferedFile, FlushHandsDataToTheSystem) {
    CBufferedFile file(name, "wb");
    std::fputs("now", file.GetStream());
    file.Flush();
    EXPECT_EQ(Content(), "now");
}

TEST_F(BufferedFile, DestructorWritesTheRest) {
    {
        CBufferedFile file(name, "wb");
        std::fputs("rest", file.GetStream());
    }
    EXPECT_EQ(Content(), "rest");
}

TEST_F(BufferedFile, OpeningClosesWhatWasOpen) {
    CBufferedFile file(name, "wb");
    std::fputs("first", file.GetStream());
    file.Open(file.GetFileName(), "rb");
    EXPECT_EQ(Content(), "first");
    EXPECT_EQ(file.GetFileName(), name);
}

TEST_F(BufferedFile, MissingFileIsNamedInTheError) {
    const std::string missing = path + ".missing";
    ExpectFileError([&] { CBufferedFile file(missing.c_str(), "rb"); }, missing);
    CBufferedFile file(name, "wb");
    ExpectFileError([&] { file.Open(missing.c_str(), "rb"); }, missing);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(file.GetFileName(), GString(missing.c_str()));
}

TEST_F(BufferedFile, BadModeIsAnError) {
    ExpectFileError([&] { CBufferedFile file(name, "?"); }, path);
}

TEST_F(BufferedFile, FullDiskIsReportedWhenFlushing) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "no device that is always full";
    }
    CBufferedFile file("/dev/full", "wb");
    std::fputs("lost", file.GetStream());
    ExpectFileError([&] { file.Flush(); }, "/dev/full");
}

TEST_F(BufferedFile, FullDiskIsReportedWhenClosing) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "no device that is always full";
    }
    CBufferedFile file("/dev/full", "wb");
    std::fputs("lost", file.GetStream());
    ExpectFileError([&] { file.Close(); }, "/dev/full");
    EXPECT_FALSE(file.IsOpen());
    file.Close();
}

} // namespace
} // namespace kit
