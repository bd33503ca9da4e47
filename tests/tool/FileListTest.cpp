// Which files a command line means.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "tests/support/ScratchFile.h"
#include "tool/run/FileList.h"

namespace {

using namespace vexpa_tool;
using testing::ElementsAre;
using testing::IsEmpty;
using vexpa_test::ScratchFile;
namespace fs = std::filesystem;

std::vector<std::string> Names(const std::vector<std::string>& arguments, bool recursive = false) {
    std::vector<std::string> names;
    for (const InputFile& file : ListFiles({arguments, recursive}).files) names.push_back(file.name);
    return names;
}

TEST(DocumentName, IsTheOneOfADocument) {
    const struct {
        const char* shows;
        const char* name;
        bool isDocument;
    } rows[] = {
        {"a document", "a.docx", true},
        {"in capitals", "A.DOTX", true},
        {"the first of the list", "a.3mf", true},
        {"the last of the list", "a.xps", true},
        {"with dots", "a.b.vsdx", true},
        {"a legacy document", "a.doc", false},
        {"no extension", "docx", false},
        {"another", "a.docx.bak", false},
        {"nothing but an extension", ".xlsx", true},
        {"the lock file beside a document in use", "~$a.docx", false},
        {"an empty name", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.shows);
        EXPECT_EQ(IsDocumentName(row.name), row.isDocument);
    }
}

TEST(FileList, NamesStayAsTheyAreGiven) {
    EXPECT_THAT(Names({"b", "a", "./c", "a"}), ElementsAre("b", "a", "./c", "a"));
}

TEST(FileList, TheNamesOfAListStandOnLines) {
    const ScratchFile list("a b\n\nc\r\n-x\n@d", "list");
    EXPECT_THAT(Names({"x", "@" + list.Path(), "y"}), ElementsAre("x", "a b", "c\r", "-x", "@d", "y"));
}

TEST(FileList, TheNamesOfAListMayEndWithNul) {
    const ScratchFile list(std::string("a\nb\0c\0", 6), "list");
    EXPECT_THAT(Names({"@" + list.Path()}), ElementsAre("a\nb", "c"));
}

TEST(FileList, AListThatCannotBeReadIsAnErrorAndTheRestGoesOn) {
    testing::internal::CaptureStderr();
    const FileList list = ListFiles({{"a", "@/no/such/list", "b"}, false});
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "vexpa: /no/such/list: cannot be read: No such file or directory\n");
    EXPECT_EQ(list.files.size(), 2u);
    EXPECT_EQ(list.status, kReadOrWriteError);
}

TEST(FileList, AnAtSignAloneIsAFile) {
    EXPECT_THAT(Names({"@"}), ElementsAre("@"));
}

class Folder : public testing::Test {
protected:
    Folder() : place_(""), root_(fs::path(place_.Path()).parent_path() / "d") {
        fs::create_directories(root_ / "b" / "c");
        fs::create_directories(root_ / "a.docx");
        for (const char* name :
             {"z.docx", "b/y.XLSX", "b/c/x.pptx", "b/c/~$x.pptx", "b/notes.txt", "a.docx/v.vsdx"}) {
            std::ofstream(root_ / name) << "x";
        }
    }

    std::string Path(const char* name) const { return root_ / name; }

    ScratchFile place_;
    fs::path root_;
};

TEST_F(Folder, MeansTheDocumentsBelowItInTheOrderOfTheirNames) {
    EXPECT_THAT(Names({root_}, true), ElementsAre(Path("a.docx/v.vsdx"), Path("b/c/x.pptx"),
                                                  Path("b/y.XLSX"), Path("z.docx")));
}

TEST_F(Folder, WithoutBeingAskedToIsAFileLikeAnyOther) {
    EXPECT_THAT(Names({root_}), ElementsAre(root_.string()));
}

TEST_F(Folder, FilesBesideItNeedNoExtension) {
    EXPECT_THAT(Names({Path("b/notes.txt"), Path("b/c")}, true),
                ElementsAre(Path("b/notes.txt"), Path("b/c/x.pptx")));
}

TEST_F(Folder, LinksToFilesAreFollowedAndLinksToFoldersAreNot) {
    fs::create_symlink(root_ / "z.docx", root_ / "b" / "link.docx");
    fs::create_directory_symlink(root_, root_ / "b" / "circle");
    EXPECT_THAT(Names({Path("b")}, true),
                ElementsAre(Path("b/c/x.pptx"), Path("b/link.docx"), Path("b/y.XLSX")));
}

TEST_F(Folder, OneThatCannotBeReadIsAnErrorAndTheRestGoesOn) {
    if (geteuid() == 0) GTEST_SKIP() << "nothing is unreadable for the superuser";
    ASSERT_EQ(chmod(Path("b/c").c_str(), 0), 0);
    testing::internal::CaptureStderr();
    const FileList list = ListFiles({{root_}, true});
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "vexpa: " + Path("b/c") + ": cannot be read: Permission denied\n");
    chmod(Path("b/c").c_str(), 0700);
    EXPECT_EQ(list.files.size(), 3u);
    EXPECT_EQ(list.status, kReadOrWriteError);
}

TEST(FileList, MeansSeveralFilesByTheFormOfTheCommandLineAlone) {
    EXPECT_FALSE(MeansSeveralFiles({{"a"}, false}));
    EXPECT_FALSE(MeansSeveralFiles({{"-"}, false}));
    EXPECT_TRUE(MeansSeveralFiles({{"a", "b"}, false}));
    EXPECT_TRUE(MeansSeveralFiles({{"a"}, true}));
    EXPECT_TRUE(MeansSeveralFiles({{"@a"}, false}));
}

}  // namespace
