// SPDX-License-Identifier: MIT
#include "tools/geomtool/Files.h"

#include "tests/tools/Shapes.h"
#include "tests/tools/TemporaryFolder.h"

#include <sys/stat.h>

namespace geomtool {
namespace {

using test::ExpectInputError;
using test::TemporaryFolder;

TEST(Files, ReadsBackWhatWasWritten) {
    const TemporaryFolder folder;
    std::string bytes;
    for (int i = 0; i < 300000; ++i) {
        bytes += static_cast<char>(i % 251);
    }
    WriteFile(folder.File("a"), bytes);
    EXPECT_EQ(ReadFile(folder.File("a")), bytes);
    WriteFile(folder.File("a"), "");
    EXPECT_EQ(ReadFile(folder.File("a")), "");
    EXPECT_EQ(folder.Count(), 1u);
}

TEST(Files, TakesNamesOfTheGreatestLength) {
    const TemporaryFolder folder;
    const std::string name(255, 'n');
    WriteFile(folder.File(name), "x");
    EXPECT_EQ(folder.Content(name), "x");
}

TEST(Files, NewFilesHaveOrdinaryPermissionsAndOldOnesKeepTheirs) {
    const TemporaryFolder folder;
    const mode_t mask = ::umask(027);
    WriteFile(folder.File("new"), "x");
    ::umask(mask);
    struct stat status = {};
    ASSERT_EQ(::stat(folder.File("new").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
    ASSERT_EQ(::chmod(folder.File("new").c_str(), 0604), 0);
    WriteFile(folder.File("new"), "y");
    ASSERT_EQ(::stat(folder.File("new").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0604u);
}

TEST(Files, SymbolicLinksAreFollowed) {
    const TemporaryFolder folder;
    folder.Create("real", "old");
    std::filesystem::create_symlink(folder.File("real"), folder.File("link"));
    WriteFile(folder.File("link"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.File("link")));
    EXPECT_EQ(folder.Content("real"), "new");
}

TEST(Files, DevicesAreWrittenInPlace) {
    EXPECT_NO_THROW(WriteFile("/dev/null", "x"));
    ExpectInputError([] { WriteFile("/dev/full", "x"); },
                     "/dev/full: cannot write: No space left on device");
}

TEST(Files, FailuresNameTheFileAndTheReason) {
    const TemporaryFolder folder;
    const std::string path = folder.Path().string();
    ExpectInputError([&] { ReadFile(path + "/none"); },
                     path + "/none: cannot open: No such file or directory");
    ExpectInputError([&] { ReadFile(path); }, path + ": cannot read: Is a directory");
    ExpectInputError([&] { WriteFile(path, "x"); }, path + ": cannot write: Is a directory");
    ExpectInputError([&] { WriteFile(path + "/none/a", "x"); },
                     path + "/none/a: cannot create a file there: No such file or directory");
    EXPECT_EQ(folder.Count(), 0u);
}

} // namespace
} // namespace geomtool
