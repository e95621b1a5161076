// The generic picker: opening, what a frame draws, keys, wheel, scroll bar, clicks, its ends.

#include <gmock/gmock.h>

#include <filesystem>
#include <limits>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "dialogs/form_checks.h"
#include "dialogs/picker_view.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

namespace fs = std::filesystem;
using namespace frontend::gui;  // NOLINT(google-build-using-namespace)
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

using Action = std::function<void()>;

constexpr int kFolderMode = 1;

// The default 760 x 520 window: the list box is {8, 56, 744, 418} and shows 17 rows.
constexpr int kVisibleRows = 17;
constexpr SDL_Rect kAcceptButton{672, 482, 70, 30};
constexpr SDL_Rect kCancelButton{592, 482, 70, 30};
constexpr SDL_Rect kTrack{738, 58, 12, 414};
constexpr int kInTrack = 744;

constexpr int RowY(int row_on_screen) {
  return 56 + kPickerRowPitch * row_on_screen + 12;
}

// --- Rows that need no file system ---------------------------------------------------------------

// A loader is a plain function, so what it answers and was asked stands here.
std::map<fs::path, std::vector<PickerEntry>> g_listings;
std::vector<fs::path> g_loaded;

std::vector<PickerEntry> LoadListing(const fs::path& dir) {
  g_loaded.push_back(dir);
  const auto found = g_listings.find(dir);
  return found == g_listings.end() ? std::vector<PickerEntry>() : found->second;
}

PickerEntry File(const std::string& path) {
  return PickerEntry{fs::path(path).filename().string(), path, false};
}

PickerEntry Folder(const std::string& path) {
  return PickerEntry{fs::path(path).filename().string(), path, true};
}

// "row 0", "row 1", ...
std::vector<PickerEntry> Files(int count) {
  std::vector<PickerEntry> rows;
  for (int i = 0; i < count; ++i) {
    rows.push_back(File("/row " + std::to_string(i)));
  }
  return rows;
}

class PickerDialogTest : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    g_listings.clear();
    g_loaded.clear();
  }

  static SdlPickerDialogOptions Options() {
    SdlPickerDialogOptions options;
    options.title = "Pick";
    options.hint = "Hint";
    options.start_dir = "/";
    options.load_entries = LoadListing;
    options.accept_label = "Open";
    options.cancel_label = "Cancel";
    return options;
  }

  static SdlPickerDialogOptions FolderOptions() {
    SdlPickerDialogOptions options = Options();
    options.mode = kFolderMode;
    return options;
  }

  // Plays one action a frame; the last one must end the dialog.
  static std::string Play(const std::vector<Action>& actions,
                          const SdlPickerDialogOptions& options = Options(),
                          SDL_Window* parent = nullptr) {
    FlushEvents();
    DialogScript script;
    script.Wait();
    for (const Action& action : actions) {
      script.Step(action);
    }
    return RunSimplePickerDialog(parent, options);
  }

  // Plays actions and looks at the frame that the last of them led to; then cancels.
  static PickerView ViewAfter(std::vector<Action> actions,
                              const SdlPickerDialogOptions& options = Options()) {
    PickerView view;
    actions.push_back([&view] {
      view = LookAtPicker();
      KeyDown(SDLK_ESCAPE);
    });
    EXPECT_EQ(Play(actions, options), "");
    return view;
  }

  static std::string FirstRowAfter(const std::vector<Action>& actions) {
    return ViewAfter(actions).First();
  }
  static std::string SelectedAfter(const std::vector<Action>& actions) {
    return ViewAfter(actions).Selected();
  }
};

void Press(int x, int y) {
  MouseDown(x, y);
}

void Release(int x, int y) {
  MouseUp(x, y);
}

void Escape() {
  KeyDown(SDLK_ESCAPE);
}

// Types of what is left in the queue. Showing and closing windows leaves window events there.
std::vector<Uint32> QueuedInput() {
  std::vector<Uint32> types;
  for (const SDL_Event& event : EventsLeftBehind()) {
    if (event.type != SDL_WINDOWEVENT) {
      types.push_back(event.type);
    }
  }
  return types;
}

// --- Opening -------------------------------------------------------------------------------------

TEST_F(PickerDialogTest, OpensAWindowAsTheOptionsSay) {
  SdlPickerDialogOptions options = Options();
  options.width = 700;
  options.height = 400;
  options.window_flags = SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE;
  SDL_Window* parent = MakeParent();
  Play({Escape}, options, parent);
  const WindowRecord& window = Recorder().windows().back();
  EXPECT_EQ(window.title, "Pick");
  EXPECT_EQ((SDL_Rect{window.x, window.y, window.w, window.h}), (SDL_Rect{160, 160, 700, 400}));
  EXPECT_EQ(window.flags, Uint32{0x28});
  EXPECT_EQ(window.modal_for, parent);
  EXPECT_EQ(Recorder().renderers().front().flags, Uint32{SDL_RENDERER_ACCELERATED});
}

TEST_F(PickerDialogTest, WithoutParentIsCentred) {
  Play({Escape});
  EXPECT_EQ(Recorder().windows().back().x, 0x2FFF0000 + 60);
  EXPECT_EQ(Recorder().windows().back().y, 0x2FFF0000 + 60);
  EXPECT_EQ(Recorder().windows().back().modal_for, nullptr);
}

TEST_F(PickerDialogTest, NoWindowMeansNoChoice) {
  SDL_Window* parent = MakeParent();
  Recorder().FailAlways("SDL_CreateWindow");
  Recorder().ForgetCalls();
  EXPECT_EQ(RunSimplePickerDialog(parent, FolderOptions()), "");
  EXPECT_THAT(g_loaded, IsEmpty());
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}), IsEmpty());
}

TEST_F(PickerDialogTest, NoRendererMeansNoChoiceAndNoWindow) {
  SDL_Window* parent = MakeParent();
  Recorder().FailAlways("SDL_CreateRenderer");
  Recorder().ForgetCalls();
  EXPECT_EQ(RunSimplePickerDialog(parent, FolderOptions()), "");
  EXPECT_EQ(Recorder().alive().windows, 0U);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}), IsEmpty());
}

TEST_F(PickerDialogTest, SoftwareRendererWillDo) {
  Recorder().FailCall("SDL_CreateRenderer");
  EXPECT_EQ(Play({[] { KeyDown(SDLK_RETURN); }}, FolderOptions()), "/");
  EXPECT_EQ(Recorder().renderers().back().flags, Uint32{SDL_RENDERER_SOFTWARE});
}

TEST_F(PickerDialogTest, IsShownAfterTheFirstPresentAndTornDownInOrder) {
  SDL_Window* parent = MakeParent();
  Recorder().ForgetCalls();
  Play({[] {}, Escape}, Options(), parent);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                                     "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_DestroyRenderer",
                                     "SDL_DestroyWindow"}),
              ElementsAre("SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                          "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_RenderPresent", "SDL_Delay",
                          "SDL_RenderPresent", "SDL_Delay", "SDL_RaiseWindow",
                          "SDL_SetWindowInputFocus", "SDL_DestroyRenderer", "SDL_DestroyWindow"));
  EXPECT_THAT(Recorder().delays(), Each(8U));
}

TEST_F(PickerDialogTest, FocusReturnsToTheParent) {
  SDL_Window* parent = MakeParent();
  Recorder().ForgetCalls();
  Play({Escape}, Options(), parent);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, parent),
              ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
}

TEST_F(PickerDialogTest, MissingTextsAreEmpty) {
  SdlPickerDialogOptions options = Options();
  options.title = nullptr;
  options.accept_label = nullptr;
  options.cancel_label = nullptr;
  options.hint.clear();
  Play({[] { EXPECT_THAT(Recorder().last_frame().Texts(), ElementsAre("/")); }, Escape}, options);
  EXPECT_EQ(Recorder().windows().back().title, "");
}

TEST_F(PickerDialogTest, WithoutLoaderTheListIsEmpty) {
  SdlPickerDialogOptions options = FolderOptions();
  options.load_entries = nullptr;
  PickerView view;
  EXPECT_EQ(Play({[&view] { view = LookAtPicker(); }, [] { KeyDown(SDLK_RETURN); }}, options), "/");
  EXPECT_THAT(view.labels, IsEmpty());
  EXPECT_EQ(view.selected_on_screen, std::nullopt);
}

// --- The start directory -------------------------------------------------------------------------

class PickerStartTest : public PickerDialogTest {
 protected:
  // The directory that a folder picker started at `start` shows first.
  static std::string Shown(const fs::path& start) {
    SdlPickerDialogOptions options = FolderOptions();
    options.start_dir = start;
    return Play({[] { Click(kAcceptButton); }}, options);
  }

  TemporaryDirectory folder_;
  const std::string dir_ = folder_.path().string();
};

TEST_F(PickerStartTest, DirectoryIsShownInItsOwnForm) {
  EXPECT_EQ(Shown(dir_), dir_);
  EXPECT_EQ(Shown(dir_ + "/"), dir_ + "/");
  EXPECT_EQ(Shown(dir_ + "/../"), dir_ + "/../");
  const ScopedWorkingDirectory here(dir_);
  folder_.Write("sub/a", "");
  EXPECT_EQ(Shown("sub"), "sub");
  EXPECT_EQ(Shown("./sub"), "./sub");
  EXPECT_EQ(Shown("."), ".");
  EXPECT_THAT(g_loaded, SizeIs(6));
}

TEST_F(PickerStartTest, MissingOneBecomesTheWorkingDirectory) {
  const ScopedWorkingDirectory here(dir_);
  EXPECT_EQ(Shown("/nope/sub"), dir_);
  EXPECT_EQ(Shown("nope"), dir_);
  EXPECT_EQ(Shown(""), dir_);
}

// Not the directory that the name stands in.
TEST_F(PickerStartTest, UnreadableOneBecomesTheWorkingDirectory) {
  const std::string working_directory = folder_.MakeFolder("here").string();
  const ScopedWorkingDirectory here(working_directory);
  fs::create_symlink("circle", folder_.path() / "circle");
  EXPECT_EQ(Shown(dir_ + "/circle"), working_directory);
  fs::create_symlink("missing", folder_.path() / "dangling");
  EXPECT_EQ(Shown(dir_ + "/dangling"), working_directory);
}

TEST_F(PickerStartTest, FileBecomesItsDirectory) {
  folder_.Write("sub/a.img", "");
  EXPECT_EQ(Shown(dir_ + "/sub/a.img"), dir_ + "/sub");
  const ScopedWorkingDirectory here(dir_);
  EXPECT_EQ(Shown("sub/a.img"), "sub");
  fs::current_path("sub");
  EXPECT_EQ(Shown("a.img"), dir_ + "/sub");
}

TEST_F(PickerStartTest, LinkToADirectoryIsOne) {
  folder_.Write("sub/a.img", "");
  fs::create_symlink("sub", folder_.path() / "link");
  EXPECT_EQ(Shown(dir_ + "/link"), dir_ + "/link");
}

TEST_F(PickerStartTest, WithoutWorkingDirectoryTheListIsThere) {
  const ScopedWorkingDirectory here(folder_.MakeFolder("gone"));
  fs::remove(folder_.path() / "gone");
  EXPECT_EQ(Shown("nope"), "");
  EXPECT_THAT(g_loaded, ElementsAre(fs::path()));
}

// --- What a frame draws --------------------------------------------------------------------------

// A picture of the draw calls, one line each.
std::vector<std::string> Draws(const Frame& frame) {
  std::vector<std::string> lines;
  for (const DrawCall& call : frame.draws) {
    if (call.kind == DrawKind::Copy) {
      continue;
    }
    std::ostringstream line;
    const SDL_Color c = call.color;
    line << call.kind << ' ' << call.rect.x << ',' << call.rect.y;
    if (call.kind == DrawKind::Text) {
      line << " \"" << call.text << '"';
    } else {
      line << ' ' << call.rect.w << 'x' << call.rect.h;
    }
    line << ' ' << int{c.r} << ',' << int{c.g} << ',' << int{c.b} << ',' << int{c.a};
    lines.push_back(line.str());
  }
  return lines;
}

std::string Drawn(DrawKind kind, const std::string& rest) {
  std::ostringstream line;
  line << kind << ' ' << rest;
  return line.str();
}

TEST_F(PickerDialogTest, FrameDrawsEverythingInOrder) {
  using enum DrawKind;
  g_listings["/"] = {Folder("/games"), File("/a.img")};
  std::vector<std::string> draws;
  Play({[&draws] {
    draws = Draws(Recorder().last_frame());
    Escape();
  }});
  const std::string text = " 232,236,240,255";
  EXPECT_THAT(
      draws,
      ElementsAre(
          Drawn(Clear, "0,0 760x520 20,23,27,255"), Drawn(Fill, "0,0 760x56 32,36,42,255"),
          Drawn(Text, "10,8 \"Hint\"" + text), Drawn(Text, "10,30 \"/\"" + text),
          Drawn(Fill, "8,56 744x418 12,14,18,255"), Drawn(Outline, "8,56 744x418 80,88,98,255"),
          Drawn(Fill, "9,57 742x23 52,66,90,255"), Drawn(Text, "17,61 \"games\"" + text),
          Drawn(Text, "17,85 \"a.img\"" + text), Drawn(Fill, "738,58 12x414 28,32,38,255"),
          Drawn(Outline, "738,58 12x414 70,76,84,255"), Drawn(Fill, "738,58 12x414 92,102,116,255"),
          Drawn(Outline, "738,58 12x414 140,150,166,255"), Drawn(Fill, "0,474 760x46 28,32,38,255"),
          Drawn(Fill, "592,482 70x30 70,76,84,255"), Drawn(Fill, "672,482 70x30 70,76,84,255"),
          Drawn(Text, "602,489 \"Cancel\"" + text), Drawn(Text, "682,489 \"Open\"" + text)));
}

TEST_F(PickerDialogTest, GeometryFollowsTheOptions) {
  SdlPickerDialogOptions options = FolderOptions();
  options.width = 780;
  options.height = 540;
  options.footer_height = 50;
  options.button_width = 86;
  options.button_height = 34;
  Frame frame;
  Play({[&frame] {
         frame = Recorder().last_frame();
         Escape();
       }},
       options);
  EXPECT_THAT(frame.Fills({32, 36, 42, 255}), ElementsAre(SDL_Rect{0, 0, 780, 56}));
  EXPECT_THAT(frame.Fills({12, 14, 18, 255}), ElementsAre(SDL_Rect{8, 56, 764, 434}));
  EXPECT_THAT(frame.Fills({28, 32, 38, 255}),
              ElementsAre(SDL_Rect{758, 58, 12, 430}, SDL_Rect{0, 490, 780, 50}));
  EXPECT_THAT(frame.Fills({70, 76, 84, 255}),
              ElementsAre(SDL_Rect{580, 498, 86, 34}, SDL_Rect{676, 498, 86, 34}));
}

TEST_F(PickerDialogTest, GeometryFollowsTheWindow) {
  g_listings["/"] = Files(30);
  const auto resize = [](int width, int height) {
    return [width, height] { SDL_SetWindowSize(Recorder().newest_window(), width, height); };
  };
  const PickerView view = ViewAfter({resize(500, 300)});
  EXPECT_THAT(view.labels, SizeIs((300 - 56 - 46) / 24));
  EXPECT_EQ(Recorder().last_frame().Fills({12, 14, 18, 255}).front(), (SDL_Rect{8, 56, 484, 198}));
  EXPECT_THAT(ViewAfter({resize(500, 100)}).labels, SizeIs(1));
  EXPECT_EQ(Recorder().last_frame().Fills({12, 14, 18, 255}).front(), (SDL_Rect{8, 56, 484, 1}));
  EXPECT_THAT(ViewAfter({resize(500, 56 + 46 + 47)}).labels, SizeIs(1));
  EXPECT_THAT(ViewAfter({resize(500, 56 + 46 + 48)}).labels, SizeIs(2));
}

TEST_F(PickerDialogTest, LabelsComeFromTheOptions) {
  SdlPickerDialogOptions options = Options();
  options.label_entry = [](const PickerEntry& e) {
    return (e.is_directory ? "<" : "-") + e.path.string();
  };
  g_listings["/"] = {Folder("/games"), File("/a.img")};
  EXPECT_THAT(ViewAfter({}, options).labels, ElementsAre("</games", "-/a.img"));
}

TEST_F(PickerDialogTest, OnlyVisibleRowsAreLabelled) {
  static int labelled;
  labelled = 0;
  SdlPickerDialogOptions options = Options();
  options.label_entry = [](const PickerEntry& e) {
    ++labelled;
    return e.name;
  };
  g_listings["/"] = Files(1000);
  Play({Escape}, options);
  EXPECT_EQ(labelled, 2 * kVisibleRows);
}

// How often a picker with these rows measures a text in a frame.
class PickerMeasuring : public PickerDialogTest {
 protected:
  long MeasurementsInAFrame(std::vector<PickerEntry> rows) {
    g_listings["/"] = std::move(rows);
    long measured = 0;
    Play({[&measured] { measured = -Recorder().CallCount("TTF_SizeUTF8"); },
          [&measured] {
            measured += Recorder().CallCount("TTF_SizeUTF8");
            Escape();
          }});
    return measured;
  }
};

TEST_F(PickerMeasuring, ShortTextsAreDrawnUnmeasured) {
  EXPECT_EQ(MeasurementsInAFrame(Files(1000)), 0);
}

TEST_F(PickerMeasuring, TextsOfAboutTheRowsWidthAreMeasuredOnce) {
  const PickerEntry name_of_most_of_the_row = File(std::string("/").append(45, 'm'));
  EXPECT_EQ(MeasurementsInAFrame(std::vector<PickerEntry>(1000, name_of_most_of_the_row)),
            kVisibleRows);
}

TEST_F(PickerDialogTest, LongNamesEndInFrontOfTheScrollBar) {
  const std::string wide = std::string(200, 'm');
  const std::string umlauts = [] {
    std::string text;
    for (int i = 0; i < 120; ++i) {
      text += "\xC3\x84";
    }
    return text;
  }();
  g_listings["/"] = {File("/" + wide), File("/" + umlauts), File("/short")};
  std::vector<DrawCall> texts;
  Play({[&texts] {
    texts = Recorder().last_frame().OfKind(DrawKind::Text);
    Escape();
  }});
  ASSERT_THAT(texts, SizeIs(7));
  EXPECT_THAT(texts[2].text, StartsWith("mmmm"));
  EXPECT_THAT(texts[2].text, EndsWith("m..."));
  EXPECT_THAT(texts[3].text, EndsWith("\xC3\x84..."));
  EXPECT_EQ((texts[3].text.size() - 3) % 2, 0U);
  EXPECT_EQ(texts[4].text, "short");
  for (const DrawCall& text : {texts[2], texts[3]}) {
    EXPECT_EQ(text.rect.x, 17);
    EXPECT_LE(text.rect.x + text.rect.w, kTrack.x);
    EXPECT_GT(text.rect.x + text.rect.w, kTrack.x - 30) << "cut shorter than needed";
  }
}

int PickerTextWidth(const std::string& text) {
  int width = 0;
  TTF_SizeUTF8(GetCachedSdlUiFont(15, false, SdlUiFontKind::Ui), text.c_str(), &width, nullptr);
  return width;
}

TEST_F(PickerDialogTest, LongHintKeepsItsBeginningAndALongFolderItsEnd) {
  const std::string dir = std::string("/").append(150, 'm').append("/end");
  g_listings["/"] = {Folder(dir)};
  SdlPickerDialogOptions options = Options();
  options.hint = std::string("hint ").append(150, 'm').append(" end");
  std::vector<DrawCall> texts;
  Play({[] { KeyDown(SDLK_RETURN); },
        [&texts] {
          texts = Recorder().last_frame().OfKind(DrawKind::Text);
          Escape();
        }},
       options);
  ASSERT_THAT(texts, SizeIs(4));
  EXPECT_THAT(texts[0].text, StartsWith("hint m"));
  EXPECT_THAT(texts[0].text, EndsWith("m..."));
  EXPECT_THAT(texts[1].text, StartsWith("...m"));
  EXPECT_THAT(texts[1].text, EndsWith("m/end"));
  for (const DrawCall& line : {texts[0], texts[1]}) {
    EXPECT_EQ(line.rect.x, 10);
    EXPECT_LE(line.rect.w, 740) << "as far from the right edge as from the left";
    const std::size_t m = line.text.find('m');
    EXPECT_GT(PickerTextWidth(std::string(line.text).insert(m, "m")), 740)
        << "cut shorter than needed";
  }
}

// What shows of the two captions, cancel first.
std::vector<SDL_Rect> ShownCaptions() {
  std::vector<SDL_Rect> shown;
  for (const DrawCall& text : Recorder().last_frame().OfKind(DrawKind::Text)) {
    if (text.rect.y > kAcceptButton.y) {
      shown.push_back(VisiblePart(text));
    }
  }
  return shown;
}

TEST_F(PickerDialogTest, WideCaptionsAreClippedToTheirButtons) {
  const std::string wide(40, 'm');
  SdlPickerDialogOptions options = Options();
  options.accept_label = wide.c_str();
  options.cancel_label = wide.c_str();
  Play({[&wide] {
          const int height = Recorder().last_frame().FindText(wide)->rect.h;
          EXPECT_THAT(ShownCaptions(), ElementsAre(SDL_Rect{602, 489, 59, std::min(height, 23)},
                                                   SDL_Rect{682, 489, 59, std::min(height, 23)}));
        },
        Escape},
       options);
}

TEST_F(PickerDialogTest, HighCaptionsAreClippedToTheirButtons) {
  SdlPickerDialogOptions options = Options();
  options.button_height = 14;
  Play({[] {
          for (const SDL_Rect& shown : ShownCaptions()) {
            EXPECT_EQ(shown.y, 497);
            EXPECT_EQ(shown.h, 7);
          }
          EXPECT_THAT(ShownCaptions(), SizeIs(2));
        },
        Escape},
       options);
}

TEST_F(PickerDialogTest, CaptionsOfButtonsWithoutRoomDoNotShow) {
  for (const int width : {0, 1, 2, 11}) {
    SdlPickerDialogOptions options = Options();
    options.button_width = width;
    Play({[width] {
            for (const DrawCall& text : Recorder().last_frame().OfKind(DrawKind::Text)) {
              if (text.text == "Open" || text.text == "Cancel") {
                ASSERT_TRUE(text.clip);
                EXPECT_GE(text.clip->w, 0) << width;
                EXPECT_TRUE(text.IsClippedAway()) << width;
              }
            }
          },
          Escape},
         options);
  }
}

TEST_F(PickerDialogTest, NothingButTheCaptionsIsClipped) {
  g_listings["/"] = {File(std::string("/").append(200, 'm'))};
  Play({[] {
          for (const DrawCall& call : Recorder().last_frame().draws) {
            if (call.rect.y < kAcceptButton.y + 7) {
              EXPECT_FALSE(call.clip) << ::testing::PrintToString(call);
            }
          }
        },
        Escape});
}

TEST_F(PickerDialogTest, BytesThatCannotBeDrawnShowAsReplacementCharacters) {
  const std::string mark = "\xEF\xBF\xBD";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"\xFF", mark},
      {"a\nb\tc", "a" + mark + "b" + mark + "c"},
      {"\x01\x1F\x7F", mark + mark + mark},
      {"\x80tail", mark + "tail"},
      {"cut\xC3", "cut" + mark},
      {"cut\xE2\x82", "cut" + mark + mark},
      {"\xC3(", mark + "("},
      {"\xC0\xAF", mark + mark},
      {"\xC1\xBF", mark + mark},
      {"\xE0\x9F\xBF", mark + mark + mark},
      {"\xED\xA0\x80", mark + mark + mark},
      {"\xF0\x8F\xBF\xBF", mark + mark + mark + mark},
      {"\xF4\x90\x80\x80", mark + mark + mark + mark},
      {"\xF5\x80\x80\x80", mark + mark + mark + mark},
      {"\xC2\x85x", mark + mark + "x"},
      {"\xC2\xA0\xDF\xBF", "\xC2\xA0\xDF\xBF"},
      {"\xE0\xA0\x80\xE2\x82\xAC\xED\x9F\xBF", "\xE0\xA0\x80\xE2\x82\xAC\xED\x9F\xBF"},
      {"\xEE\x80\x80\xEF\xBF\xBD", "\xEE\x80\x80\xEF\xBF\xBD"},
      {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
  };
  std::vector<std::string> expected;
  SdlPickerDialogOptions options = Options();
  options.height = 56 + 46 + kPickerRowPitch * static_cast<int>(cases.size());
  options.hint = "\xFE";
  for (const auto& [name, shown] : cases) {
    g_listings["/"].push_back(File("/" + name));
    expected.push_back(shown);
  }
  const PickerView view = ViewAfter({}, options);
  EXPECT_THAT(view.labels, ElementsAreArray(expected));
  EXPECT_TRUE(Recorder().last_frame().HasText(mark));
}

TEST_F(PickerDialogTest, BytesThatCannotBeDrawnAreReturned) {
  for (const std::string path : {"/\xFF\n\t.img", "/-rf.img"}) {
    g_listings["/"] = {File(path)};
    EXPECT_EQ(Play({[] { KeyDown(SDLK_RETURN); }}), path);
  }
}

TEST_F(PickerDialogTest, FontIsOpenedBetweenWindowAndFirstHeartbeat) {
  DialogScript script;
  script.Step([] {
    EXPECT_THAT(Recorder().CallsAmong({"SDL_CreateWindow", "TTF_OpenFont"}),
                ElementsAre("SDL_CreateWindow", "TTF_OpenFont"));
    EXPECT_EQ(Recorder().font_requests().back().size, 15);
    Escape();
  });
  RunSimplePickerDialog(nullptr, Options());
}

TEST_F(PickerDialogTest, MissingFontIsLookedForOnce) {
  Recorder().HideAllFonts();
  g_listings["/"] = Files(30);
  std::size_t looked_for = 0;
  DialogScript script;
  script.Step([&looked_for] { looked_for = Recorder().font_requests().size(); })
      .Wait(2)
      .Step(Escape);
  RunSimplePickerDialog(nullptr, Options());
  EXPECT_GT(looked_for, 0U);
  EXPECT_EQ(Recorder().font_requests().size(), looked_for);
}

TEST_F(PickerDialogTest, WorksWithoutAFont) {
  Recorder().HideAllFonts();
  g_listings["/"] = Files(30);
  EXPECT_EQ(Play({[] { Wheel(-1); }, [] { Click(50, RowY(2)); },
                  [] {
                    EXPECT_THAT(Recorder().last_frame().Texts(), IsEmpty());
                    EXPECT_THAT(Recorder().last_frame().Fills(kPickerSelectedFill), SizeIs(1));
                    Click(kAcceptButton);
                  }}),
            "/row 3");
}

// --- Keys ----------------------------------------------------------------------------------------

Action Keys(std::vector<SDL_Keycode> keys) {
  return [keys] {
    for (const SDL_Keycode key : keys) {
      KeyDown(key);
    }
  };
}

TEST_F(PickerDialogTest, FirstRowIsSelectedAtFirst) {
  g_listings["/"] = Files(3);
  EXPECT_EQ(SelectedAfter({}), "row 0");
}

TEST_F(PickerDialogTest, UpAndDownStayAmongTheRows) {
  g_listings["/"] = Files(3);
  EXPECT_EQ(SelectedAfter({Keys({SDLK_UP})}), "row 0");
  EXPECT_EQ(SelectedAfter({Keys({SDLK_DOWN})}), "row 1");
  EXPECT_EQ(SelectedAfter({Keys({SDLK_DOWN, SDLK_UP})}), "row 0");
  EXPECT_EQ(SelectedAfter({Keys({SDLK_DOWN, SDLK_DOWN})}), "row 2");
  EXPECT_EQ(SelectedAfter({Keys({SDLK_DOWN, SDLK_DOWN, SDLK_DOWN})}), "row 2");
  EXPECT_EQ(SelectedAfter({Keys({SDLK_DOWN, SDLK_DOWN, SDLK_DOWN, SDLK_UP})}), "row 1");
}

TEST_F(PickerDialogTest, UpAndDownDoNotScroll) {
  g_listings["/"] = Files(30);
  const PickerView view = ViewAfter({Keys(std::vector<SDL_Keycode>(20, SDLK_DOWN))});
  EXPECT_EQ(view.First(), "row 0");
  EXPECT_EQ(view.selected_on_screen, std::nullopt);
  EXPECT_EQ(Play({Keys(std::vector<SDL_Keycode>(20, SDLK_DOWN)), Keys({SDLK_RETURN})}), "/row 20");
}

TEST_F(PickerDialogTest, UpAndDownOfAnEmptyListDoNothing) {
  SdlPickerDialogOptions options = FolderOptions();
  EXPECT_EQ(Play({Keys({SDLK_DOWN, SDLK_UP, SDLK_UP, SDLK_DOWN}), Keys({SDLK_RETURN})}, options),
            "/");
}

TEST_F(PickerDialogTest, OtherKeysDoNothing) {
  g_listings["/"] = Files(40);
  const PickerView view =
      ViewAfter({Keys({SDLK_PAGEDOWN, SDLK_END, SDLK_HOME, SDLK_PAGEUP, SDLK_BACKSPACE, SDLK_r,
                       SDLK_TAB, SDLK_SPACE, SDLK_LEFT, SDLK_RIGHT, SDLK_DELETE}),
                 [] {
                   TextInput("row 5");
                   KeyUp(SDLK_ESCAPE);
                   KeyUp(SDLK_RETURN);
                   KeyUp(SDLK_DOWN);
                 }});
  EXPECT_EQ(view.First(), "row 0");
  EXPECT_EQ(view.Selected(), "row 0");
  EXPECT_THAT(g_loaded, SizeIs(1));
}

TEST_F(PickerDialogTest, EnterAcceptsAFile) {
  g_listings["/"] = Files(3);
  EXPECT_EQ(Play({Keys({SDLK_DOWN}), Keys({SDLK_RETURN})}), "/row 1");
  EXPECT_EQ(Play({Keys({SDLK_DOWN}), Keys({SDLK_KP_ENTER})}), "/row 1");
}

TEST_F(PickerDialogTest, EnterOpensADirectoryInEitherMode) {
  g_listings["/"] = {Folder("/a"), Folder("/b")};
  g_listings["/b"] = {PickerEntry{"..", "/", true}, File("/b/x")};
  for (const SdlPickerDialogOptions& options : {Options(), FolderOptions()}) {
    const PickerView view = ViewAfter({Keys({SDLK_DOWN}), Keys({SDLK_RETURN})}, options);
    EXPECT_EQ(view.directory, "/b");
    EXPECT_THAT(view.labels, ElementsAre("..", "x"));
    EXPECT_EQ(view.Selected(), "..");
  }
  EXPECT_EQ(g_loaded, (std::vector<fs::path>{"/", "/b", "/", "/b"}));
}

TEST_F(PickerDialogTest, OpeningADirectoryScrollsToItsTop) {
  g_listings["/"] = Files(40);
  g_listings["/"][5] = Folder("/deep");
  g_listings["/deep"] = Files(40);
  const PickerView view =
      ViewAfter({[] { Wheel(-5); }, [] { Click(50, RowY(0)); }, Keys({SDLK_RETURN})});
  EXPECT_EQ(view.First(), "row 0");
  EXPECT_EQ(view.Selected(), "row 0");
}

TEST_F(PickerDialogTest, ParentRowShowsTheParentsOwnPath) {
  g_listings["/"] = {Folder("/a")};
  g_listings["/a"] = {PickerEntry{"..", "/", true}};
  const PickerView view = ViewAfter({Keys({SDLK_RETURN}), Keys({SDLK_RETURN})});
  EXPECT_EQ(view.directory, "/");
  EXPECT_THAT(view.labels, ElementsAre("a"));
}

TEST_F(PickerDialogTest, EnterInAnEmptyListAcceptsFoldersAlone) {
  EXPECT_EQ(Play({Keys({SDLK_RETURN})}, FolderOptions()), "/");
  g_loaded.clear();
  ViewAfter({Keys({SDLK_RETURN, SDLK_KP_ENTER})});
  EXPECT_THAT(g_loaded, SizeIs(1));
}

TEST_F(PickerDialogTest, FileRowOfAFolderPickerAcceptsTheDirectory) {
  g_listings["/"] = Files(2);
  EXPECT_EQ(Play({Keys({SDLK_RETURN})}, FolderOptions()), "/");
  EXPECT_EQ(Play({[] { DoubleClick(50, RowY(1)); }}, FolderOptions()), "/");
}

TEST_F(PickerDialogTest, EnteringAnEmptyDirectorySelectsNothing) {
  g_listings["/"] = {Folder("/empty")};
  const PickerView view = ViewAfter({Keys({SDLK_RETURN})});
  EXPECT_THAT(view.labels, IsEmpty());
  EXPECT_EQ(Play({Keys({SDLK_RETURN}), Keys({SDLK_RETURN})}, FolderOptions()), "/empty");
}

TEST_F(PickerDialogTest, KeysAndWheelCountForAnyWindow) {
  g_listings["/"] = Files(30);
  SDL_Window* parent = MakeParent();
  const Uint32 other = SDL_GetWindowID(parent);
  PickerView view;
  Play({[other] {
          KeyDown(SDLK_DOWN, other);
          KeyDown(SDLK_DOWN, other);
          Wheel(-1, 0, {0, 0}, other);
        },
        [&view] {
          view = LookAtPicker();
          Escape();
        }},
       Options(), parent);
  EXPECT_EQ(view.First(), "row 1");
  EXPECT_EQ(view.Selected(), "row 2");
}

// --- Wheel ---------------------------------------------------------------------------------------

TEST_F(PickerDialogTest, WheelScrollsOneRowANotch) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(FirstRowAfter({[] { Wheel(-1); }}), "row 1");
  EXPECT_EQ(FirstRowAfter({[] { Wheel(-3); }, [] { Wheel(1); }}), "row 2");
  EXPECT_EQ(FirstRowAfter({[] { FlippedWheel(-2); }}), "row 2");
  EXPECT_EQ(FirstRowAfter({[] { Wheel(0, 5); }}), "row 0");
}

TEST_F(PickerDialogTest, WheelStopsAtBothEnds) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(FirstRowAfter({[] { Wheel(1); }}), "row 0");
  EXPECT_EQ(FirstRowAfter({[] { Wheel(-100); }}), "row 13");
  EXPECT_EQ(FirstRowAfter({[] { Wheel(-100); }, [] { Wheel(1); }}), "row 12");
  g_listings["/"] = Files(kVisibleRows);
  EXPECT_EQ(FirstRowAfter({[] { Wheel(-1); }}), "row 0");
}

TEST_F(PickerDialogTest, WheelPastTheEndIsPutRightByTheFrame) {
  g_listings["/"] = Files(30);
  // Within one frame the surplus counts: 20 down and 4 up lead to 16, which becomes 13.
  EXPECT_EQ(FirstRowAfter({[] {
              Wheel(-20);
              Wheel(4);
            }}),
            "row 13");
  // The start is put right at once: 5 up and 3 down lead to 3.
  EXPECT_EQ(FirstRowAfter({[] {
              Wheel(5);
              Wheel(-3);
            }}),
            "row 3");
}

TEST_F(PickerDialogTest, WheelSurvivesAbsurdNotches) {
  g_listings["/"] = Files(30);
  constexpr int kMin = std::numeric_limits<int>::min();
  EXPECT_EQ(FirstRowAfter({[] {
              Wheel(kMin);
              Wheel(kMin);
              Click(50, RowY(3));
            }}),
            "row 13");
  EXPECT_EQ(FirstRowAfter({[] { Wheel(testing::LargestInEvents()); }}), "row 0");
}

// --- Scroll bar ----------------------------------------------------------------------------------

struct ScrollbarCase {
  SDL_Rect list;
  int total;
  int visible;
  int scroll;
  SDL_Rect track;
  SDL_Rect thumb;
  int max_scroll;
};

TEST(SimpleScrollbar, LayoutIsWorkedOutInWholePixels) {
  constexpr SDL_Rect kList{8, 56, 744, 418};
  constexpr SDL_Rect kLow{0, 0, 100, 5};
  const ScrollbarCase cases[] = {
      {kList, 30, 17, 0, kTrack, {738, 58, 12, 234}, 13},
      {kList, 30, 17, 13, kTrack, {738, 238, 12, 234}, 13},
      {kList, 30, 17, 1, kTrack, {738, 71, 12, 234}, 13},
      {kList, 30, 17, 7, kTrack, {738, 154, 12, 234}, 13},
      {kList, 30, 17, 99, kTrack, {738, 238, 12, 234}, 13},
      {kList, 30, 17, -5, kTrack, {738, 58, 12, 234}, 13},
      {kList, 18, 17, 1, kTrack, {738, 81, 12, 391}, 1},
      {kList, 17, 17, 0, kTrack, kTrack, 0},
      {kList, 3, 17, 9, kTrack, kTrack, 0},
      {kList, 0, 17, 0, kTrack, kTrack, 0},
      {kList, 10000, 17, 9983, kTrack, {738, 448, 12, 24}, 9983},
      {kList, 10000, 17, 5000, kTrack, {738, 253, 12, 24}, 9983},
      {kList, 1000000000, 17, 0, kTrack, {738, 58, 12, 24}, 999999983},
      {kList, 293, 17, 0, kTrack, {738, 58, 12, 24}, 276},
      {kList, 281, 17, 0, kTrack, {738, 58, 12, 25}, 264},
      {kLow, 5, 1, 4, {86, 2, 12, 8}, {86, 3, 12, 24}, 4},
      {{0, 0, 100, 12}, 5, 1, 0, {86, 2, 12, 8}, {86, 2, 12, 24}, 4},
      {{0, 0, 100, 13}, 1, 1, 0, {86, 2, 12, 9}, {86, 2, 12, 9}, 0},
      {{-3, -4, 20, 100}, 2, 1, 1, {3, -2, 12, 96}, {3, 46, 12, 48}, 1},
      {kList, 5, -3, 8, kTrack, {738, 448, 12, 24}, 8},
      {kList, 0, -3, 3, kTrack, {738, 448, 12, 24}, 3},
  };
  for (const ScrollbarCase& test : cases) {
    const SimpleScrollbarLayout bar =
        BuildSimpleScrollbarLayout(test.list, test.total, test.visible, test.scroll);
    const ::testing::Message what = ::testing::Message()
                                    << test.total << " rows, scroll " << test.scroll;
    EXPECT_EQ(bar.track, test.track) << what;
    EXPECT_EQ(bar.thumb, test.thumb) << what;
    EXPECT_EQ(bar.max_scroll, test.max_scroll) << what;
  }
}

TEST(SimpleScrollbar, PositionIsSinglePrecision) {
  // 16,777,217 is no float: the division gives exactly 1, where double precision would not.
  const SimpleScrollbarLayout bar =
      BuildSimpleScrollbarLayout({0, 0, 100, 1000}, 16777218, 1, 16777216);
  EXPECT_EQ(bar.max_scroll, 16777217);
  EXPECT_EQ(bar.thumb.y, 2 + 996 - 24);
}

TEST_F(PickerDialogTest, ScrollBarIsDrawnInFourSteps) {
  const ModalWindowBundle bundle = CreateModalWindowBundle(
      nullptr, "Bar", 0, 0, 100, 100, SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
  SimpleScrollbarLayout bar;
  bar.track = {1, 2, 12, 90};
  bar.thumb = {3, 4, 5, 6};
  DrawSimpleScrollbar(bundle.renderer.get(), bar);
  using enum DrawKind;
  EXPECT_THAT(
      Draws(Recorder().unpresented()),
      ElementsAre(Drawn(Fill, "1,2 12x90 28,32,38,255"), Drawn(Outline, "1,2 12x90 70,76,84,255"),
                  Drawn(Fill, "3,4 5x6 92,102,116,255"),
                  Drawn(Outline, "3,4 5x6 140,150,166,255")));
  DrawSimpleScrollbar(nullptr, bar);
}

TEST_F(PickerDialogTest, ThumbFollowsTheRows) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(ViewAfter({}).thumb, (SDL_Rect{738, 58, 12, 234}));
  EXPECT_EQ(ViewAfter({[] { Wheel(-100); }}).thumb, (SDL_Rect{738, 238, 12, 234}));
}

// Thumb 58 .. 291 of a track of 414 pixels: 180 pixels of travel for 13 rows.
TEST_F(PickerDialogTest, DraggingTheThumbScrolls) {
  g_listings["/"] = Files(30);
  const auto drag_by = [](int distance) {
    return FirstRowAfter(
        {[] { Press(kInTrack, 100); }, [distance] { Motion(kInTrack, 100 + distance); }});
  };
  EXPECT_EQ(drag_by(13), "row 0");  // 13 / 180 * 13 = 0.94
  EXPECT_EQ(drag_by(14), "row 1");  // 1.01
  EXPECT_EQ(drag_by(27), "row 1");  // 1.95
  EXPECT_EQ(drag_by(28), "row 2");
  EXPECT_EQ(drag_by(179), "row 12");
  EXPECT_EQ(drag_by(180), "row 13");
  EXPECT_EQ(drag_by(5000), "row 13");
  EXPECT_EQ(drag_by(-5000), "row 0");
}

TEST_F(PickerDialogTest, DragIsMeasuredFromItsStart) {
  g_listings["/"] = Files(30);
  const auto drag_from_5 = [](int distance) {
    return FirstRowAfter({[] { Wheel(-5); }, [] { Press(kInTrack, 200); },
                          [] { Motion(kInTrack, 500); },
                          [distance] { Motion(-40, 200 + distance); }});
  };
  EXPECT_EQ(drag_from_5(0), "row 5");
  EXPECT_EQ(drag_from_5(-13), "row 5");  // Truncated towards zero: -0.94 is no row.
  EXPECT_EQ(drag_from_5(-14), "row 4");
  EXPECT_EQ(drag_from_5(14), "row 6");
}

TEST_F(PickerDialogTest, DragEndsWithTheRelease) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(FirstRowAfter({[] {
              Press(kInTrack, 100);
              Motion(kInTrack, 128);
              Release(kInTrack, 128);
              Motion(kInTrack, 400);
            }}),
            "row 2");
  // A release anywhere ends it, and is a click there.
  const PickerView view = ViewAfter({[] { Press(kInTrack, 100); }, [] { Motion(0, 128); },
                                     [] { Release(300, RowY(4)); }, [] { Motion(300, 300); }});
  EXPECT_EQ(view.First(), "row 2");
  EXPECT_EQ(view.Selected(), "row 6");
}

// The pointer may have left for the parent by then.
TEST_F(PickerDialogTest, DragEndsWithAReleaseOverAnotherWindow) {
  g_listings["/"] = Files(30);
  SDL_Window* parent = MakeParent();
  const Uint32 other = SDL_GetWindowID(parent);
  PickerView view;
  Play({[] { Press(kInTrack, 100); }, [] { Motion(kInTrack, 128); },
        [other] { MouseUp(50, RowY(4), SDL_BUTTON_LEFT, 1, other); }, [] { Motion(kInTrack, 300); },
        [&view] {
          view = LookAtPicker();
          Escape();
        }},
       Options(), parent);
  EXPECT_EQ(view.First(), "row 2");
  EXPECT_EQ(view.Selected(), "") << "the release is no click";
}

TEST_F(PickerDialogTest, PressOverAnotherWindowDoesNotEndADrag) {
  g_listings["/"] = Files(30);
  SDL_Window* parent = MakeParent();
  const Uint32 other = SDL_GetWindowID(parent);
  EXPECT_EQ(FirstRowAfter({[] { Press(kInTrack, 100); },
                           [other] {
                             MouseDown(kInTrack, 100, SDL_BUTTON_LEFT, 1, other);
                             MouseUp(kInTrack, 100, SDL_BUTTON_RIGHT, 1, other);
                             Motion(kInTrack, 128);
                           }}),
            "row 2");
}

// A drag during which the host opens a dialog of its own and the user closes it; `pressed_after`:
// the button is still down then.
class PickerDragAndNestedDialog : public PickerDialogTest {
 protected:
  static std::string FirstRowBehindNestedDialog(bool pressed_after, const Action& after) {
    const SdlPickerDialogOptions nested = Options();
    return FirstRowAfter({[] { Press(kInTrack, 100); },
                          [pressed_after, &nested] {
                            RunSimplePickerDialog(nullptr, nested);
                            Recorder().SetPointer(nullptr, 0, 0,
                                                  pressed_after ? SDL_BUTTON_LMASK : 0);
                          },
                          [] {},  // Played by the nested picker.
                          [] {
                            MouseUp(300, 40, SDL_BUTTON_LEFT, 1, WindowId());
                            Escape();
                          },
                          after});
  }
};

TEST_F(PickerDragAndNestedDialog, ReleaseThatTheNestedDialogReadEndsTheDrag) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(FirstRowBehindNestedDialog(false, [] { Motion(kInTrack, 300); }), "row 0");
}

TEST_F(PickerDragAndNestedDialog, ButtonThatIsStillDownGoesOnDragging) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(FirstRowBehindNestedDialog(true, [] { Motion(kInTrack, 128); }), "row 2");
}

TEST_F(PickerDragAndNestedDialog, NextPressDragsAgain) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(FirstRowBehindNestedDialog(false,
                                       [] {
                                         Press(kInTrack, 100);
                                         Motion(kInTrack, 128);
                                       }),
            "row 2");
}

TEST_F(PickerDialogTest, OtherButtonsNeitherStartNorEndADrag) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(FirstRowAfter({[] {
              MouseDown(kInTrack, 100, SDL_BUTTON_RIGHT);
              Motion(kInTrack, 200);
            }}),
            "row 0");
  EXPECT_EQ(FirstRowAfter({[] {
              Press(kInTrack, 100);
              MouseUp(kInTrack, 100, SDL_BUTTON_MIDDLE);
              Motion(kInTrack, 128);
            }}),
            "row 2");
}

TEST_F(PickerDialogTest, MotionWithoutDragDoesNothing) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(FirstRowAfter({[] { Motion(kInTrack, 300, SDL_BUTTON_LMASK); }}), "row 0");
}

TEST_F(PickerDialogTest, DragPausesWhileAllRowsFit) {
  g_listings["/"] = Files(30);
  const PickerView view =
      ViewAfter({[] { Press(kInTrack, 100); },
                 [] { SDL_SetWindowSize(Recorder().newest_window(), 760, 900); },
                 [] { Motion(kInTrack, 300); },
                 [] { SDL_SetWindowSize(Recorder().newest_window(), 760, 520); }});
  EXPECT_EQ(view.First(), "row 0");
}

TEST_F(PickerDialogTest, TrackPagesOnEitherSideOfTheThumb) {
  g_listings["/"] = Files(100);
  // 414 * 17 / 100 = 70 pixels of thumb, 344 of travel.
  EXPECT_EQ(FirstRowAfter({[] { Press(kInTrack, 400); }}), "row 17");
  EXPECT_EQ(FirstRowAfter({[] { Press(kInTrack, 400); }, [] { Press(kInTrack, 400); }}), "row 34");
  EXPECT_EQ(FirstRowAfter({[] { Wheel(-40); }, [] { Press(kInTrack, 60); }}), "row 23");
  EXPECT_EQ(FirstRowAfter({[] { Wheel(-10); }, [] { Press(kInTrack, 60); }}), "row 0");
  EXPECT_EQ(FirstRowAfter({[] { Wheel(-75); }, [] { Press(kInTrack, 471); }}), "row 83");
  // Within a frame the scroll position may lie past the end; paging brings it back.
  EXPECT_EQ(FirstRowAfter({[] {
              Wheel(-1000);
              Press(kInTrack, 60);
              Wheel(50);
            }}),
            "row 33");
}

TEST_F(PickerDialogTest, TrackPagesForOneHiddenRow) {
  g_listings["/"] = Files(kVisibleRows + 1);
  EXPECT_EQ(FirstRowAfter({[] { Press(kInTrack, 471); }}), "row 1");
}

TEST_F(PickerDialogTest, ReleaseOnTheTrackDoesNothing) {
  g_listings["/"] = Files(100);
  const PickerView view = ViewAfter({[] { Release(kInTrack, 400); }});
  EXPECT_EQ(view.First(), "row 0");
  EXPECT_EQ(view.Selected(), "row 0");
}

TEST_F(PickerDialogTest, TrackIsPartOfTheRowsWhileAllFit) {
  g_listings["/"] = Files(5);
  EXPECT_EQ(SelectedAfter({[] { Press(kInTrack, RowY(3)); }}), "row 3");
}

TEST_F(PickerDialogTest, TrackHasTwelveColumns) {
  g_listings["/"] = Files(100);
  EXPECT_EQ(FirstRowAfter({[] { Press(738, 400); }}), "row 17");
  EXPECT_EQ(FirstRowAfter({[] { Press(749, 400); }}), "row 17");
  EXPECT_EQ(FirstRowAfter({[] { Press(737, 400); }}), "row 0");
  EXPECT_EQ(FirstRowAfter({[] { Press(750, 400); }}), "row 0");
  EXPECT_EQ(FirstRowAfter({[] { Press(kInTrack, 471); }}), "row 17");
  EXPECT_EQ(FirstRowAfter({[] { Press(kInTrack, 472); }}), "row 0");
}

// Thumb 58 .. 127: its last row drags, the next one pages.
TEST_F(PickerDialogTest, ThumbIsDraggedToItsLastPixel) {
  g_listings["/"] = Files(100);
  EXPECT_EQ(FirstRowAfter({[] { Press(kInTrack, 127); }}), "row 0");
  EXPECT_EQ(FirstRowAfter({[] { Press(kInTrack, 128); }}), "row 17");
  EXPECT_EQ(FirstRowAfter({[] { Press(kInTrack, 58); }, [] { Motion(kInTrack, 102); }}), "row 10");
}

// --- Rows ----------------------------------------------------------------------------------------

TEST_F(PickerDialogTest, PressOrReleaseSelectsARow) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(SelectedAfter({[] { Press(50, RowY(3)); }}), "row 3");
  EXPECT_EQ(SelectedAfter({[] { Release(50, RowY(4)); }}), "row 4");
  EXPECT_EQ(SelectedAfter({[] { Wheel(-5); }, [] { Click(50, RowY(4)); }}), "row 9");
  EXPECT_EQ(SelectedAfter({[] { Press(50, RowY(3)); }, [] { Release(50, RowY(6)); }}), "row 6");
}

TEST_F(PickerDialogTest, RowsReachAcrossTheWindow) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(SelectedAfter({[] { Press(0, RowY(3)); }}), "row 3");
  EXPECT_EQ(SelectedAfter({[] { Press(759, RowY(3)); }}), "row 3");
  EXPECT_EQ(SelectedAfter({[] { Press(-100, RowY(3)); }}), "row 3");
}

TEST_F(PickerDialogTest, RowsAre24PixelsFromTheListsTop) {
  g_listings["/"] = Files(40);
  const auto selected_at = [](int y) {
    return SelectedAfter({[] { KeyDown(SDLK_DOWN); }, [y] { Press(50, y); }});
  };
  EXPECT_EQ(selected_at(55), "row 1");  // Above the list: as it was.
  EXPECT_EQ(selected_at(56), "row 0");
  EXPECT_EQ(selected_at(79), "row 0");
  EXPECT_EQ(selected_at(80), "row 1");
  EXPECT_EQ(selected_at(103), "row 1");
  EXPECT_EQ(selected_at(104), "row 2");
  EXPECT_EQ(selected_at(474), "row 1");  // Below the list.
}

TEST_F(PickerDialogTest, PartialRowAtTheBottomCanBeSelected) {
  g_listings["/"] = Files(40);
  // 418 pixels: the list box ends ten pixels below row 16.
  EXPECT_EQ(SelectedAfter({[] { Press(50, 473); }, [] { Wheel(-1); }}), "row 17");
}

TEST_F(PickerDialogTest, ClickBelowTheRowsDoesNothing) {
  g_listings["/"] = Files(3);
  EXPECT_EQ(SelectedAfter({[] { DoubleClick(50, RowY(3)); }}), "row 0");
  EXPECT_EQ(SelectedAfter({[] { DoubleClick(50, RowY(16)); }}), "row 0");
}

TEST_F(PickerDialogTest, ClickAboveTheFirstRowDoesNothing) {
  g_listings["/"] = Files(30);
  // A drag may lead before the first row until the frame is drawn.
  const PickerView view = ViewAfter({[] { Press(kInTrack, 100); },
                                     [] {
                                       Motion(kInTrack, 100 - 180);
                                       Press(50, RowY(5));
                                       Motion(kInTrack, 100 + 28);
                                     }});
  EXPECT_EQ(view.First(), "row 2");
  EXPECT_EQ(view.Selected(), "");
  EXPECT_EQ(SelectedAfter({[] { Press(kInTrack, 100); },
                           [] {
                             Motion(kInTrack, 100 - 180);
                             Press(50, RowY(14));
                           }}),
            "row 1");
}

TEST_F(PickerDialogTest, ClickPutsTheScrollPositionRight) {
  g_listings["/"] = Files(30);
  // 20 rows down are seven past the end; the click looks there, then the position is 13.
  const PickerView view = ViewAfter({[] {
    Wheel(-20);
    Press(50, RowY(5));
    Wheel(1);
  }});
  EXPECT_EQ(view.First(), "row 12");
  EXPECT_EQ(view.Selected(), "row 25");
}

TEST_F(PickerDialogTest, OtherButtonsDoNotClick) {
  g_listings["/"] = Files(3);
  for (const Uint8 button : {Uint8{SDL_BUTTON_RIGHT}, Uint8{SDL_BUTTON_MIDDLE}}) {
    EXPECT_EQ(SelectedAfter({[button] { Click(50, RowY(2), button, 2); },
                             [button] { Click(700, 490, button); },
                             [button] { Click(600, 490, button); }}),
              "row 0");
  }
}

TEST_F(PickerDialogTest, MouseOfAnotherWindowDoesNothing) {
  g_listings["/"] = Files(30);
  SDL_Window* parent = MakeParent();
  const Uint32 other = SDL_GetWindowID(parent);
  PickerView view;
  const std::string result = Play({[other] {
                                     DoubleClick(50, RowY(2), other);
                                     Click(610, 490, SDL_BUTTON_LEFT, 1, other);
                                     Click(700, 490, SDL_BUTTON_LEFT, 1, other);
                                     Press(kInTrack, 100);
                                     Motion(kInTrack, 200, 0, other);
                                   },
                                   [] { Motion(kInTrack, 114, 0, WindowId()); },
                                   [&view] {
                                     view = LookAtPicker();
                                     Escape();
                                   }},
                                  Options(), parent);
  EXPECT_EQ(result, "");
  EXPECT_EQ(view.First(), "row 1");
  EXPECT_EQ(view.labels[0], "row 1");
}

TEST_F(PickerDialogTest, MouseOfTheOwnWindowCounts) {
  g_listings["/"] = Files(3);
  EXPECT_EQ(SelectedAfter({[] { MouseDown(50, RowY(2), SDL_BUTTON_LEFT, 1, WindowId()); }}),
            "row 2");
}

// --- Double clicks -------------------------------------------------------------------------------

TEST_F(PickerDialogTest, DoubleClickReturnsAFile) {
  g_listings["/"] = Files(30);
  EXPECT_EQ(Play({[] { Wheel(-2); }, [] { DoubleClick(50, RowY(1)); }}), "/row 3");
}

TEST_F(PickerDialogTest, ThirdClickCountsAsWell) {
  g_listings["/"] = Files(3);
  EXPECT_EQ(Play({[] { MouseDown(50, RowY(1), SDL_BUTTON_LEFT, 3); }}), "/row 1");
}

TEST_F(PickerDialogTest, ReleaseWithTwoClicksOnlySelects) {
  g_listings["/"] = Files(3);
  EXPECT_EQ(SelectedAfter({[] { MouseUp(50, RowY(1), SDL_BUTTON_LEFT, 2); }}), "row 1");
}

TEST_F(PickerDialogTest, DoubleClickOpensADirectory) {
  g_listings["/"] = {File("/a"), Folder("/b")};
  g_listings["/b"] = Files(30);
  const PickerView opened =
      ViewAfter({[] { MouseDown(50, RowY(1), SDL_BUTTON_LEFT, 2); }}, FolderOptions());
  EXPECT_EQ(opened.directory, "/b");
  EXPECT_EQ(opened.Selected(), "row 0");
}

TEST_F(PickerDialogTest, ReleaseOfADoubleClickSelectsInTheNewListing) {
  g_listings["/"] = {File("/a"), Folder("/b")};
  g_listings["/b"] = Files(30);
  EXPECT_EQ(SelectedAfter({[] { DoubleClick(50, RowY(1)); }}), "row 1");
  // The second press of another double click opens what the first one left under the pointer.
  g_listings["/b"] = {File("/b/x"), Folder("/b/c")};
  const PickerView deeper =
      ViewAfter({[] { DoubleClick(50, RowY(1)); }, [] { DoubleClick(50, RowY(1)); }});
  EXPECT_EQ(deeper.directory, "/b/c");
}

// --- Buttons -------------------------------------------------------------------------------------

TEST_F(PickerDialogTest, AcceptButtonReturnsTheSelectedFile) {
  g_listings["/"] = Files(3);
  EXPECT_EQ(Play({[] { KeyDown(SDLK_DOWN); }, [] { Click(kAcceptButton); }}), "/row 1");
}

TEST_F(PickerDialogTest, AcceptButtonOpensTheSelectedDirectory) {
  g_listings["/"] = {Folder("/a")};
  g_listings["/a"] = Files(2);
  const PickerView view = ViewAfter({[] { Click(kAcceptButton); }});
  EXPECT_EQ(view.directory, "/a");
  EXPECT_EQ(view.Selected(), "row 0");
}

TEST_F(PickerDialogTest, AcceptButtonOfAFolderPickerReturnsTheDirectoryShown) {
  g_listings["/"] = {Folder("/a"), Folder("/b")};
  EXPECT_EQ(Play({[] { KeyDown(SDLK_DOWN); }, [] { Click(kAcceptButton); }}, FolderOptions()), "/");
}

TEST_F(PickerDialogTest, AcceptButtonWithoutSelectionDoesNothingInFileMode) {
  ViewAfter({[] { Click(kAcceptButton); }});
  EXPECT_THAT(g_loaded, SizeIs(1));
}

TEST_F(PickerDialogTest, CancelButtonCancels) {
  g_listings["/"] = Files(3);
  EXPECT_EQ(Play({[] { Click(kCancelButton); }}), "");
  EXPECT_EQ(Play({[] { Click(kCancelButton); }}, FolderOptions()), "");
}

TEST_F(PickerDialogTest, ButtonsActOnReleaseAlone) {
  g_listings["/"] = Files(3);
  ViewAfter({[] { Press(700, 490); }, [] { Release(400, 490); }, [] { Press(600, 490); },
             [] { Release(400, 490); }});
  EXPECT_EQ(Play({[] { Press(400, 490); }, [] { Release(700, 490); }}), "/row 0");
}

TEST_F(PickerDialogTest, ButtonsEndAtTheirEdges) {
  g_listings["/"] = Files(3);
  for (const SDL_Rect& button : {kAcceptButton, kCancelButton}) {
    const int right = button.x + button.w;
    const int bottom = button.y + button.h;
    ViewAfter({[=] { Click(button.x - 1, button.y); }, [=] { Click(button.x, button.y - 1); },
               [=] { Click(right, button.y); }, [=] { Click(button.x, bottom); }});
    const std::string result = button.x == kAcceptButton.x ? "/row 0" : "";
    EXPECT_EQ(Play({[=] { Click(button.x, button.y); }}), result);
    EXPECT_EQ(Play({[=] { Click(right - 1, bottom - 1); }}), result);
  }
}

TEST_F(PickerDialogTest, HeaderAndFooterDoNothing) {
  g_listings["/"] = Files(3);
  const PickerView view = ViewAfter({[] { DoubleClick(50, 10); }, [] { DoubleClick(50, 55); },
                                     [] { DoubleClick(50, 474); }, [] { DoubleClick(50, 519); },
                                     [] { Click(667, 490); }});
  EXPECT_EQ(view.Selected(), "row 0");
}

// --- Ends ----------------------------------------------------------------------------------------

TEST_F(PickerDialogTest, EscapeQuitAndCloseCancel) {
  g_listings["/"] = Files(3);
  EXPECT_EQ(Play({Escape}, FolderOptions()), "");
  EXPECT_EQ(Play({[] { Quit(); }}, FolderOptions()), "");
  EXPECT_EQ(Play({[] { CloseWindow(WindowId()); }}, FolderOptions()), "");
}

TEST_F(PickerDialogTest, QuitIsConsumed) {
  Play({[] { Quit(); }});
  EXPECT_THAT(QueuedInput(), IsEmpty());
}

TEST_F(PickerDialogTest, CloseOfAnotherWindowIsDropped) {
  SDL_Window* parent = MakeParent();
  const Uint32 other = SDL_GetWindowID(parent);
  EXPECT_EQ(
      Play({[other] { CloseWindow(other); }, [] { WindowEvent(WindowId(), SDL_WINDOWEVENT_LEAVE); },
            [] { KeyDown(SDLK_RETURN); }},
           FolderOptions(), parent),
      "/");
  EXPECT_THAT(QueuedInput(), IsEmpty());
}

TEST_F(PickerDialogTest, FirstDecidingEventWins) {
  g_listings["/"] = {File("/a"), File("/b"), Folder("/c")};
  EXPECT_EQ(Play({[] {
              KeyDown(SDLK_RETURN);
              KeyDown(SDLK_DOWN);
              KeyDown(SDLK_RETURN);
              Escape();
            }}),
            "/a");
  EXPECT_EQ(Play({[] {
              Escape();
              KeyDown(SDLK_RETURN);
            }}),
            "");
  EXPECT_EQ(Play({[] {
              DoubleClick(50, RowY(1));
              Quit();
            }}),
            "/b");
}

TEST_F(PickerDialogTest, NothingBehindTheDecidingEventIsActedOn) {
  g_listings["/"] = {File("/a"), Folder("/b")};
  Play({[] {
    Escape();
    DoubleClick(50, RowY(1));
    KeyDown(SDLK_RETURN);
  }});
  EXPECT_THAT(g_loaded, SizeIs(1));
  EXPECT_THAT(QueuedInput(), IsEmpty()) << "the drain empties the queue all the same";
}

TEST_F(PickerDialogTest, DecidedFrameIsStillDrawn) {
  Play({Escape});
  EXPECT_EQ(Recorder().presents(), 2);
  EXPECT_THAT(Recorder().delays(), SizeIs(2));
}

// --- Exceptions ----------------------------------------------------------------------------------

class PickerExceptionTest : public PickerDialogTest {
 protected:
  // Everything must be gone and the parent in front again.
  void ExpectThrow(const SdlPickerDialogOptions& options) {
    SDL_Window* parent = MakeParent();
    Recorder().ForgetCalls();
    EXPECT_THROW(RunSimplePickerDialog(parent, options), std::runtime_error);
    EXPECT_EQ(Recorder().alive().windows, 0U);
    EXPECT_EQ(Recorder().alive().renderers, 0U);
    EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, parent),
                ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
  }
};

TEST_F(PickerExceptionTest, OfTheHeartbeatPassesThrough) {
  DialogScript script;
  script.Wait().Step([] { throw std::runtime_error("heartbeat"); });
  ExpectThrow(Options());
}

TEST_F(PickerExceptionTest, OfTheLoaderPassesThrough) {
  SdlPickerDialogOptions options = Options();
  options.load_entries = [](const fs::path&) -> std::vector<PickerEntry> {
    throw std::runtime_error("loader");
  };
  ExpectThrow(options);
}

TEST_F(PickerExceptionTest, OfTheLabelPassesThrough) {
  SdlPickerDialogOptions options = Options();
  options.label_entry = [](const PickerEntry&) -> std::string {
    throw std::runtime_error("label");
  };
  g_listings["/"] = Files(1);
  ExpectThrow(options);
}

// --- Exported pieces -----------------------------------------------------------------------------

TEST(IsPointInRect, LeavesOutRightAndBottomEdges) {
  constexpr SDL_Rect kRect{10, 20, 30, 40};
  EXPECT_TRUE(IsPointInRect(kRect, 10, 20));
  EXPECT_TRUE(IsPointInRect(kRect, 39, 59));
  EXPECT_FALSE(IsPointInRect(kRect, 9, 20));
  EXPECT_FALSE(IsPointInRect(kRect, 10, 19));
  EXPECT_FALSE(IsPointInRect(kRect, 40, 59));
  EXPECT_FALSE(IsPointInRect(kRect, 39, 60));
  EXPECT_FALSE(IsPointInRect({10, 20, 0, 40}, 10, 20));
}

TEST_F(PickerDialogTest, ModalTextIsDrawnWithThePickersFont) {
  const ModalWindowBundle bundle = CreateModalWindowBundle(
      nullptr, "Text", 0, 0, 100, 100, SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
  constexpr SDL_Color kColor{1, 2, 3, 255};
  DrawSimpleModalText(bundle.renderer.get(), "text", 4, 5, kColor);
  const DrawCall* text = Recorder().unpresented().FindText("text");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->rect.x, 4);
  EXPECT_EQ(text->rect.y, 5);
  EXPECT_EQ(text->color, kColor);
  EXPECT_EQ(text->font.size, 15);
  EXPECT_EQ(text->font.style, TTF_STYLE_NORMAL);
  EXPECT_THAT(text->font.path, EndsWith("IBMPlexSans-SemiBold.ttf"));
}

TEST_F(PickerDialogTest, ModalTextNeedsRendererAndText) {
  const ModalWindowBundle bundle = CreateModalWindowBundle(
      nullptr, "Text", 0, 0, 100, 100, SDL_WINDOW_HIDDEN, ModalRendererMode::Software);
  DrawSimpleModalText(nullptr, "text", 4, 5, kColTextHi);
  DrawSimpleModalText(bundle.renderer.get(), nullptr, 4, 5, kColTextHi);
  DrawSimpleModalText(bundle.renderer.get(), "", 4, 5, kColTextHi);
  EXPECT_THAT(Recorder().font_requests(), IsEmpty());
  Recorder().HideAllFonts();
  DrawSimpleModalText(bundle.renderer.get(), "text", 4, 5, kColTextHi);
  EXPECT_THAT(Recorder().unpresented().draws, IsEmpty());
}

}  // namespace
}  // namespace quindle::testing
