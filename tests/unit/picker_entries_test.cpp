// Rows of the pickers: what is listed, in which order, and how much the file system is asked.

#include <dirent.h>
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "frontend/gui/sdl_pickers.h"
#include "support/temporary_directory.h"

namespace {

// What the C library is asked while a directory is listed, and what it answers.
struct FileSystemCalls {
  int status_queries = 0;
  int fail_read_at = 0;     // The n-th readdir from now fails; 0: none.
  bool hide_types = false;  // Directories do not tell the types of their entries.
};
FileSystemCalls g_calls;

template <typename Function>
Function* NextDefinition(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

}  // namespace

// These two stand before the C library's own: the test program exports its symbols.
extern "C" struct dirent* readdir(DIR* directory) {
  static auto* const next = NextDefinition<struct dirent*(DIR*)>("readdir");
  if (g_calls.fail_read_at > 0 && --g_calls.fail_read_at == 0) {
    errno = EIO;
    return nullptr;
  }
  struct dirent* entry = next(directory);
  if (entry != nullptr && g_calls.hide_types) {
    entry->d_type = DT_UNKNOWN;
  }
  return entry;
}

extern "C" int stat(const char* path, struct stat* status) noexcept {
  static auto* const next = NextDefinition<int(const char*, struct stat*)>("stat");
  ++g_calls.status_queries;
  return next(path, status);
}

namespace quindle::testing {
namespace {

namespace fs = std::filesystem;
using namespace frontend::gui;  // NOLINT(google-build-using-namespace)
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

// One row as "name", "name/" for directories.
std::vector<std::string> Shown(const std::vector<PickerEntry>& rows) {
  std::vector<std::string> shown;
  for (const PickerEntry& row : rows) {
    shown.push_back(row.name + (row.is_directory ? "/" : ""));
  }
  return shown;
}

std::vector<std::string> Floppies(const fs::path& dir) {
  return Shown(ReadFilteredPickerEntries(dir, IsAllowedImagePickerEntry));
}

std::vector<std::string> Folders(const fs::path& dir) {
  return Shown(ReadFolderPickerEntries(dir));
}

// The working directory is put back when the test ends.
class WorkingDirectory {
 public:
  explicit WorkingDirectory(const fs::path& dir) : former_(fs::current_path()) {
    fs::current_path(dir);
  }
  ~WorkingDirectory() { fs::current_path(former_); }
  WorkingDirectory(const WorkingDirectory&) = delete;
  WorkingDirectory& operator=(const WorkingDirectory&) = delete;
  WorkingDirectory(WorkingDirectory&&) = delete;
  WorkingDirectory& operator=(WorkingDirectory&&) = delete;

 private:
  fs::path former_;
};

// Root may read everything, so the listing runs as a user who may not.
class UnprivilegedUser {
 public:
  UnprivilegedUser() : was_root_(geteuid() == 0) {
    if (was_root_) {
      constexpr uid_t kNobody = 65534;
      EXPECT_EQ(seteuid(kNobody), 0);
    }
  }
  ~UnprivilegedUser() {
    if (was_root_) {
      EXPECT_EQ(seteuid(0), 0);
    }
  }
  UnprivilegedUser(const UnprivilegedUser&) = delete;
  UnprivilegedUser& operator=(const UnprivilegedUser&) = delete;
  UnprivilegedUser(UnprivilegedUser&&) = delete;
  UnprivilegedUser& operator=(UnprivilegedUser&&) = delete;

 private:
  bool was_root_;
};

class PickerEntriesTest : public ::testing::Test {
 protected:
  void SetUp() override { g_calls = {}; }
  void TearDown() override { g_calls = {}; }

  void Write(const std::string& name) const { folder_.Write(name, ""); }
  void MakeFolder(const std::string& name) const { fs::create_directories(Dir() / name); }
  void Link(const std::string& target, const std::string& name) const {
    fs::create_symlink(target, Dir() / name);
  }
  const fs::path& Dir() const { return folder_.path(); }

 private:
  TemporaryDirectory folder_;
};

// --- Filters -------------------------------------------------------------------------------------

struct FilterCase {
  const char* path;
  bool floppy;
  bool shader;
  bool font;
};

TEST(PickerFilter, LooksAtTheLoweredExtension) {
  constexpr FilterCase kCases[] = {
      {"a.ima", true, false, false},
      {"a.img", true, false, false},
      {"Disk.IMG", true, false, false},
      {"/x/y.z/Disk.iMa", true, false, false},
      {"disk.img.bak", false, false, false},
      {"disk.bak.img", true, false, false},
      {"disk.imgx", false, false, false},
      {"disk.im", false, false, false},
      {"img", false, false, false},
      {".img", false, false, false},
      {"..img", true, false, false},
      {"a.glsl", false, true, false},
      {"a.GLSLP", false, true, false},
      {"a.glslpx", false, false, false},
      {"a.frag", false, true, false},
      {"a.vert", false, true, false},
      {"a.fs", false, true, false},
      {"a.vs", false, true, false},
      {"a.gs", false, false, false},
      {"a.ttf", false, false, true},
      {"X.OTF", false, false, true},
      {".ttf", false, false, false},
      {"a.ttc", false, false, false},
      {"folder.img/plain", false, false, false},
      {"folder.img/", false, false, false},
      {"", false, false, false},
      {".", false, false, false},
      {"..", false, false, false},
      {"a.", false, false, false},
  };
  for (const FilterCase& test : kCases) {
    EXPECT_EQ(IsAllowedImagePickerEntry(test.path), test.floppy) << test.path;
    EXPECT_EQ(IsShaderPickerEntry(test.path), test.shader) << test.path;
    EXPECT_EQ(IsFontPickerEntry(test.path), test.font) << test.path;
  }
}

TEST(HasAnyExtension, LowersThePathAndNotTheList) {
  EXPECT_TRUE(HasAnyExtension("A.TXT", {".bin", ".txt"}));
  EXPECT_FALSE(HasAnyExtension("a.txt", {".TXT"}));
}

TEST(HasAnyExtension, LowersAsciiAlone) {
  EXPECT_TRUE(HasAnyExtension("a.\xC3\x84Q", {".\xC3\x84q"}));
  EXPECT_FALSE(HasAnyExtension("a.\xC3\x84", {".\xC3\xA4"}));
}

TEST(HasAnyExtension, EmptyExtensionMatchesAnEmptyText) {
  EXPECT_TRUE(HasAnyExtension("plain", {".txt", ""}));
  EXPECT_FALSE(HasAnyExtension("plain", {".txt"}));
  EXPECT_FALSE(HasAnyExtension("a.txt", {}));
}

// --- Order ---------------------------------------------------------------------------------------

TEST(PickerEntryNameLess, ComparesLoweredBytes) {
  struct Case {
    const char* a;
    const char* b;
    bool less;
    bool greater;
  };
  constexpr Case kCases[] = {
      {"abc", "ABC", false, false},   {"ab", "abc", true, false},
      {"alpha", "Zeta", true, false}, {"_", "Z", true, false},
      {"10", "9", true, false},       {"", "a", true, false},
      {"z", "\xC3\x84", true, false}, {"\xC3\x84", "\xC3\xA4", true, false},
      {"\x7F", "\x80", true, false},
  };
  for (const Case& test : kCases) {
    const PickerEntry a{test.a, "/1", false};
    const PickerEntry b{test.b, "/2", true};
    EXPECT_EQ(PickerEntryNameLess(a, b), test.less) << test.a << ' ' << test.b;
    EXPECT_EQ(PickerEntryNameLess(b, a), test.greater) << test.a << ' ' << test.b;
  }
}

TEST_F(PickerEntriesTest, LongListsAreSortedInBothGroups) {
  std::mt19937 random(7);
  for (int i = 0; i < 400; ++i) {
    std::string name;
    for (int letter = 0; letter < 3; ++letter) {
      name += "abAB_.9\xC3"[random() % 8];
    }
    name += std::to_string(i);
    i % 3 == 0 ? MakeFolder(name) : Write(name + ".img");
  }
  const std::vector<PickerEntry> rows = ReadFilteredPickerEntries(Dir(), IsAllowedImagePickerEntry);
  ASSERT_THAT(rows, SizeIs(401));
  const auto first_file =
      std::find_if(rows.begin(), rows.end(), [](const PickerEntry& e) { return !e.is_directory; });
  EXPECT_EQ(first_file - rows.begin(), 1 + 134);
  EXPECT_TRUE(std::is_sorted(rows.begin() + 1, first_file, PickerEntryNameLess));
  EXPECT_TRUE(std::is_sorted(first_file, rows.end(), PickerEntryNameLess));
  EXPECT_TRUE(std::none_of(first_file, rows.end(), [](const auto& e) { return e.is_directory; }));
}

// --- Rows ----------------------------------------------------------------------------------------

TEST_F(PickerEntriesTest, FloppyListHoldsParentFoldersAndImages) {
  Write("b.IMG");
  Write("A.ima");
  Write("c.txt");
  MakeFolder("Zed");
  EXPECT_THAT(Floppies(Dir()), ElementsAre("../", "Zed/", "A.ima", "b.IMG"));
}

TEST_F(PickerEntriesTest, FolderListHoldsParentAndFolders) {
  Write("b.img");
  MakeFolder("Zeta");
  MakeFolder("alpha");
  MakeFolder("disk.img");
  EXPECT_THAT(Folders(Dir()), ElementsAre("../", "alpha/", "disk.img/", "Zeta/"));
}

TEST_F(PickerEntriesTest, FilterLetsEveryFolderPass) {
  MakeFolder("notes.txt");
  MakeFolder("plain");
  EXPECT_THAT(Floppies(Dir()), ElementsAre("../", "notes.txt/", "plain/"));
}

TEST_F(PickerEntriesTest, FilterSeesWholePaths) {
  static std::vector<fs::path> seen;
  seen.clear();
  Write("one");
  MakeFolder("two");
  const auto accept = [](const fs::path& path) {
    seen.push_back(path);
    return true;
  };
  EXPECT_THAT(Shown(ReadFilteredPickerEntries(Dir(), accept)), ElementsAre("../", "two/", "one"));
  EXPECT_THAT(seen, ElementsAre(Dir() / "one"));
}

TEST_F(PickerEntriesTest, WithoutFilterNoFileIsListed) {
  Write("a.img");
  MakeFolder("sub");
  EXPECT_THAT(Shown(ReadFilteredPickerEntries(Dir(), nullptr)), ElementsAre("../", "sub/"));
}

TEST_F(PickerEntriesTest, RowsHoldNamePathAndKind) {
  Write("a.img");
  MakeFolder("sub");
  const std::vector<PickerEntry> rows = ReadFilteredPickerEntries(Dir(), IsAllowedImagePickerEntry);
  ASSERT_THAT(rows, SizeIs(3));
  EXPECT_EQ(rows[0].path, Dir().parent_path());
  EXPECT_EQ(rows[1].path, Dir() / "sub");
  EXPECT_EQ(rows[2].path, Dir() / "a.img");
  EXPECT_TRUE(rows[0].is_directory);
  EXPECT_TRUE(rows[1].is_directory);
  EXPECT_FALSE(rows[2].is_directory);
}

TEST_F(PickerEntriesTest, HiddenEntriesAreListed) {
  Write(".dos.img");
  MakeFolder(".config");
  EXPECT_THAT(Floppies(Dir()), ElementsAre("../", ".config/", ".dos.img"));
}

TEST_F(PickerEntriesTest, NamesThatDifferInCaseAloneAreBothListed) {
  Write("disk.img");
  Write("DISK.IMG");
  EXPECT_THAT(Floppies(Dir()), UnorderedElementsAre("../", "disk.img", "DISK.IMG"));
}

TEST_F(PickerEntriesTest, NamesArePassedOnAsBytes) {
  const std::string longest = std::string(251, 'x') + ".img";
  const std::string names[] = {"\xFF\xFE.img", "a\nb.img", "a\tb.img", "-rf.img", longest};
  for (const std::string& name : names) {
    Write(name);
  }
  const std::vector<PickerEntry> rows = ReadFilteredPickerEntries(Dir(), IsAllowedImagePickerEntry);
  EXPECT_THAT(Shown(rows),
              ElementsAre("../", "-rf.img", "a\tb.img", "a\nb.img", longest, "\xFF\xFE.img"));
  for (const PickerEntry& row : rows) {
    EXPECT_EQ(row.path.string(),
              row.name == ".." ? Dir().parent_path().string() : Dir().string() + "/" + row.name);
  }
}

// --- The parent row ------------------------------------------------------------------------------

TEST(PickerParentRow, FollowsTheParentPathAlone) {
  struct Case {
    const char* dir;
    const char* parent;  // Null: no row.
  };
  constexpr Case kCases[] = {
      {"/nope/sub", "/nope"},
      {"/nope", "/"},
      {"floppies-nope", nullptr},
      {"floppies-nope/sub", "floppies-nope"},
      {"./nope", "."},
      {"../nope", ".."},
      {"/nope/sub/", "/nope/sub"},
      {"/nope/../sub", "/nope/.."},
      {"", nullptr},
  };
  for (const Case& test : kCases) {
    for (const auto& rows : {ReadFolderPickerEntries(test.dir),
                             ReadFilteredPickerEntries(test.dir, IsAllowedImagePickerEntry)}) {
      if (test.parent == nullptr) {
        EXPECT_THAT(rows, IsEmpty()) << test.dir;
        continue;
      }
      ASSERT_THAT(rows, SizeIs(1)) << test.dir;
      EXPECT_EQ(rows[0].name, "..");
      EXPECT_EQ(rows[0].path.string(), test.parent) << test.dir;
      EXPECT_TRUE(rows[0].is_directory);
    }
  }
}

TEST(PickerParentRow, RootHasNone) {
  const std::vector<PickerEntry> rows = ReadFolderPickerEntries("/");
  ASSERT_FALSE(rows.empty());
  EXPECT_TRUE(
      std::none_of(rows.begin(), rows.end(), [](const PickerEntry& e) { return e.name == ".."; }));
  EXPECT_EQ(rows[0].path.string(), "/" + rows[0].name);
}

TEST_F(PickerEntriesTest, RelativeDirectoriesGiveRelativeRows) {
  Write("floppies/sub/a.img");
  const WorkingDirectory here(Dir());
  const std::vector<PickerEntry> top = ReadFolderPickerEntries("floppies");
  ASSERT_THAT(Shown(top), ElementsAre("sub/"));
  EXPECT_EQ(top[0].path.string(), "floppies/sub");
  const auto sub = ReadFilteredPickerEntries(top[0].path, IsAllowedImagePickerEntry);
  ASSERT_THAT(Shown(sub), ElementsAre("../", "a.img"));
  EXPECT_EQ(sub[0].path.string(), "floppies");
  EXPECT_EQ(sub[1].path.string(), "floppies/sub/a.img");
}

// --- Kinds of entries ----------------------------------------------------------------------------

TEST_F(PickerEntriesTest, LinksCountAsWhatTheyLeadTo) {
  Write("real.bin");
  MakeFolder("folder");
  Link("folder", "to-folder");
  Link("real.bin", "to-file.img");
  Link("missing.img", "dangling.img");
  Link("circle.img", "circle.img");
  EXPECT_THAT(Floppies(Dir()), ElementsAre("../", "folder/", "to-folder/", "to-file.img"));
  EXPECT_THAT(Folders(Dir()), ElementsAre("../", "folder/", "to-folder/"));
}

TEST_F(PickerEntriesTest, LinkCircleCanBeEnteredAndLeft) {
  MakeFolder("a");
  Link("..", "a/up");
  const fs::path twice = Dir() / "a" / "up" / "a" / "up";
  EXPECT_THAT(Folders(twice), ElementsAre("../", "a/"));
  EXPECT_EQ(ReadFolderPickerEntries(twice)[0].path, Dir() / "a" / "up" / "a");
}

TEST_F(PickerEntriesTest, OtherKindsAreLeftOut) {
  ASSERT_EQ(mkfifo((Dir() / "fifo.img").c_str(), 0600), 0);
  const WorkingDirectory here(Dir());  // A socket's path has room for 107 bytes.
  const int socket_handle = socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::string("socket.img").copy(address.sun_path, sizeof address.sun_path - 1);
  ASSERT_EQ(bind(socket_handle, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  close(socket_handle);
  Link("/dev/null", "device.img");
  EXPECT_THAT(Floppies(Dir()), ElementsAre("../"));
}

TEST_F(PickerEntriesTest, DirectoriesThatDoNotTellTypesAreListedAlike) {
  Write("a.img");
  MakeFolder("sub");
  Link("sub", "to-sub");
  Link("missing.img", "dangling.img");
  ASSERT_EQ(mkfifo((Dir() / "fifo.img").c_str(), 0600), 0);
  g_calls.hide_types = true;
  EXPECT_THAT(Floppies(Dir()), ElementsAre("../", "sub/", "to-sub/", "a.img"));
  EXPECT_GT(g_calls.status_queries, 0);
}

TEST_F(PickerEntriesTest, KnownTypesAreNotAskedFor) {
  for (int i = 0; i < 50; ++i) {
    Write("disk" + std::to_string(i) + ".img");
    Write("note" + std::to_string(i) + ".txt");
    MakeFolder("folder" + std::to_string(i));
  }
  g_calls.status_queries = 0;
  EXPECT_THAT(Floppies(Dir()), SizeIs(101));
  EXPECT_EQ(g_calls.status_queries, 0);
}

// --- Failures ------------------------------------------------------------------------------------

TEST_F(PickerEntriesTest, FileInPlaceOfADirectoryGivesTheParentRow) {
  Write("a.img");
  EXPECT_THAT(Floppies(Dir() / "a.img"), ElementsAre("../"));
}

TEST_F(PickerEntriesTest, RowsBeforeAReadErrorAreKept) {
  for (int i = 0; i < 20; ++i) {
    Write("disk" + std::to_string(i) + ".img");
    MakeFolder("folder" + std::to_string(i));
  }
  // "." and ".." may be among the twenty entries that are read before the error.
  g_calls.fail_read_at = 21;
  const std::vector<PickerEntry> rows = ReadFilteredPickerEntries(Dir(), IsAllowedImagePickerEntry);
  EXPECT_EQ(rows[0].name, "..");
  EXPECT_GE(rows.size(), 1U + 18U);
  EXPECT_LE(rows.size(), 1U + 20U);
}

TEST_F(PickerEntriesTest, UnreadableDirectoryGivesTheParentRow) {
  Write("locked/a.img");
  fs::permissions(Dir(), fs::perms::all);
  fs::permissions(Dir() / "locked", fs::perms::none);
  std::vector<std::string> rows;
  {
    const UnprivilegedUser user;
    rows = Floppies(Dir() / "locked");
  }
  fs::permissions(Dir() / "locked", fs::perms::owner_all);
  EXPECT_THAT(rows, ElementsAre("../"));
}

TEST_F(PickerEntriesTest, EntriesWhoseStatusCannotBeReadAreSkipped) {
  // The names may be read, what they lead to may not.
  Write("half/a.img");
  MakeFolder("half/sub");
  Link("sub", "half/to-sub");
  Link("a.img", "half/to-a.img");
  fs::permissions(Dir(), fs::perms::all);
  constexpr fs::perms kNamesOnly =
      fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
  fs::permissions(Dir() / "half", kNamesOnly);
  std::vector<std::string> rows;
  {
    const UnprivilegedUser user;
    rows = Floppies(Dir() / "half");
  }
  fs::permissions(Dir() / "half", fs::perms::owner_all);
  EXPECT_THAT(rows, ElementsAre("../", "sub/", "a.img"));
}

}  // namespace
}  // namespace quindle::testing
