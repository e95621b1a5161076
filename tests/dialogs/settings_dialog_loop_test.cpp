// The settings dialog as a whole: opening, closing, events, clicks, "Apply" and the font browse.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>

#include "dialogs/settings_canvas.h"
#include "frontend/gui/sdl_message_box.h"
#include "frontend/gui/settings_dialog.h"

namespace quindle::frontend::gui {
namespace {

namespace fs = std::filesystem;
using testing::AliveCounts;
using testing::CloseWindow;
using ::testing::Contains;
using testing::DialogScript;
using testing::DialogTest;
using testing::DrawCall;
using testing::DrawKind;
using ::testing::ElementsAre;
using testing::Fields;
using testing::FontRequest;
using testing::Frame;
using ::testing::IsEmpty;
using testing::KeyDown;
using testing::KeyUp;
using testing::MouseDown;
using testing::MouseUp;
using testing::NavRow;
using testing::QueuedEvents;
using testing::Quit;
using testing::Recorder;
using testing::SampleValues;
using ::testing::SizeIs;
using testing::TemporaryDirectory;
using testing::WindowId;
using namespace testing::settings_colors;

constexpr SDL_Color kCanvasFill{18, 21, 27, 255};
constexpr SDL_Rect kCancel{618, 449, 90, 30};
constexpr SDL_Rect kApply{718, 449, 90, 30};
constexpr SDL_Point kInCancel{660, 460};
constexpr SDL_Point kInApply{760, 460};

// The rows that select a page, and the page's title.
struct NavRowCase {
  int row;
  int panel_id;
  const char* title;
};
const std::vector<NavRowCase>& ItemRows() {
  static const std::vector<NavRowCase> rows{
      {1, 0, "Font Mode"},       {2, 1, "Target FPS"},    {3, 2, "Renderer"},
      {4, 7, "Screenshots"},     {6, 6, "Mouse Capture"}, {8, 3, "CPU Speed"},
      {10, 4, "Logger Options"}, {12, 5, "HDD Sounds"},
  };
  return rows;
}

// --- The dialog ----------------------------------------------------------------------------------

class SettingsDialog : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    Recorder().SetDrawMode(testing::DrawMode::Recorded);
  }

  // Presses the left button in the dialog, without moving the pointer there.
  static void Press(int x, int y) { MouseDown(x, y, SDL_BUTTON_LEFT, 1, WindowId()); }
  static void Press(const SDL_Point& point) { Press(point.x, point.y); }
  static void PressRow(int row) { Press(100, NavRow(row).y + 15); }
  // Moves the pointer there and presses.
  static void PointAndPress(int x, int y) {
    Point(x, y);
    Press(x, y);
  }
  static void Point(int x, int y, Uint32 buttons = 0) {
    Recorder().SetPointer(Recorder().newest_window(), x, y, buttons);
  }
  static void Escape() { KeyDown(SDLK_ESCAPE, WindowId()); }

  // Runs the whole dialog; what "Apply" hands over is gathered.
  void Show(const SettingsDialogValues& initial = SampleValues()) {
    ShowSettingsDialog(MakeParent(), 1.0F, initial,
                       [this](const SettingsDialogValues& values) { applied_.push_back(values); });
  }

  // The title of the page that the last frame showed.
  static std::string PageTitle() {
    for (const DrawCall& call : Recorder().last_frame().OfKind(DrawKind::Text)) {
      if (call.rect.x == 247 && call.rect.y == 20) {
        return call.text;
      }
    }
    return "";
  }

  // Content top of a page with a subtitle.
  static int Top() {
    const OwnedTtfFont bold = OpenSdlUiFontHandle(15, true, SdlUiFontKind::Ui);
    const OwnedTtfFont regular = OpenSdlUiFontHandle(15, false, SdlUiFontKind::Ui);
    return 20 + TTF_FontHeight(bold.get()) + 6 + TTF_FontHeight(regular.get()) + 20;
  }

  std::vector<SettingsDialogValues> applied_;
};

// The list row with this page's number.
int RowOf(int panel_id) {
  for (const NavRowCase& c : ItemRows()) {
    if (c.panel_id == panel_id) {
      return c.row;
    }
  }
  return -1;
}

// --- Opening and closing -------------------------------------------------------------------------

TEST_F(SettingsDialog, OpensItsWindowOverTheParent) {
  DialogScript script;
  script.Wait().Step(&Escape);
  Show();
  const auto& window = Recorder().windows().back();
  EXPECT_EQ(window.title, "Settings");
  EXPECT_EQ(window.x, 100 + 60);
  EXPECT_EQ(window.y, 100 + 50);
  EXPECT_EQ(window.w, 820);
  EXPECT_EQ(window.h, 492);
  EXPECT_EQ(window.flags, 8U);
  EXPECT_EQ(window.modal_for, MakeParent());
  ASSERT_THAT(Recorder().renderers(), SizeIs(1));
  EXPECT_EQ(Recorder().renderers().back().flags, Uint32{SDL_RENDERER_SOFTWARE});
  EXPECT_THAT(
      Recorder().font_requests(),
      ElementsAre(FontRequest{"./data/ttf/IBMPlexSans-SemiBold.ttf", 15, true, TTF_STYLE_BOLD},
                  FontRequest{"./data/ttf/IBMPlexSans-SemiBold.ttf", 15, true, TTF_STYLE_NORMAL}));
  EXPECT_THAT(Recorder().delays(), ElementsAre(12U));
}

TEST_F(SettingsDialog, WithoutAParentIsCentredAndGivesNobodyTheFocus) {
  DialogScript script;
  script.Wait().Step(&Escape);
  ShowSettingsDialog(nullptr, 1.0F, SampleValues(), nullptr);
  const auto& window = Recorder().windows().back();
  EXPECT_EQ(window.x, 0x2FFF0000 + 60);
  EXPECT_EQ(window.y, 0x2FFF0000 + 50);
  EXPECT_EQ(window.modal_for, nullptr);
  EXPECT_EQ(Recorder().CallCount("SDL_RaiseWindow"), 1);  // Its own, after the first frame.
}

TEST_F(SettingsDialog, ScaleIsNotApplied) {
  for (const float scale : {0.0F, 0.5F, 3.0F}) {
    testing::FlushEvents();
    DialogScript script;
    script.Wait().Step(&Escape);
    ShowSettingsDialog(MakeParent(), scale, SampleValues(), nullptr);
    EXPECT_EQ(Recorder().windows().back().w, 820);
    EXPECT_EQ(Recorder().windows().back().h, 492);
    EXPECT_EQ(Recorder().font_requests().back().size, 15);
  }
}

TEST_F(SettingsDialog, IsShownOnceAfterItsFirstFrame) {
  SDL_Window* dialog = nullptr;
  DialogScript script;
  script.Step([&dialog] { dialog = Recorder().newest_window(); }).Wait(2).Step(&Escape);
  Show();
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                                     "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_DestroyWindow"}),
              ElementsAre("SDL_RenderPresent", "SDL_ShowWindow", "SDL_RaiseWindow",
                          "SDL_SetWindowInputFocus", "SDL_Delay", "SDL_RenderPresent", "SDL_Delay",
                          "SDL_RenderPresent", "SDL_Delay", "SDL_DestroyWindow", "SDL_RaiseWindow",
                          "SDL_SetWindowInputFocus"));
  EXPECT_THAT(Recorder().CallsAmong({"SDL_ShowWindow", "SDL_RaiseWindow"}, dialog), SizeIs(2));
}

TEST_F(SettingsDialog, ClosesFontsThenWindowThenHandsTheFocusBack) {
  DialogScript script;
  script.Wait().Step(&Escape);
  Show();
  EXPECT_THAT(
      Recorder().CallsAmong({"TTF_CloseFont", "SDL_DestroyRenderer", "SDL_DestroyWindow"}),
      ElementsAre("TTF_CloseFont", "TTF_CloseFont", "SDL_DestroyRenderer", "SDL_DestroyWindow"));
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, MakeParent()),
              ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
  EXPECT_THAT(
      Recorder().CallsAmong({"SDL_DestroyWindow", "SDL_SetWindowInputFocus"}),
      ElementsAre("SDL_SetWindowInputFocus", "SDL_DestroyWindow", "SDL_SetWindowInputFocus"));
  Recorder().ExpectNothingAlive();
}

TEST_F(SettingsDialog, WithoutAWindowOrRendererReturnsSilently) {
  for (const char* failing : {"SDL_CreateWindow", "SDL_CreateRenderer"}) {
    const DialogScript nobody(10);  // Ends a dialog that opens after all, and fails.
    MakeParent();
    Recorder().ForgetCalls();
    Recorder().FailCall(failing);
    Show();
    EXPECT_THAT(applied_, IsEmpty());
    EXPECT_THAT(Recorder().simple_message_boxes(), IsEmpty());
    EXPECT_THAT(Recorder().font_requests(), IsEmpty());
    EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}), IsEmpty());
    Recorder().ExpectNothingAlive();
  }
}

TEST_F(SettingsDialog, MissingFontIsSaidOverTheParent) {
  // Both fonts are missing, the first one (3 own files and 10 system files are tried), the second.
  for (const int missing : {0, 1, 2}) {
    SCOPED_TRACE(missing);
    const DialogScript nobody(10);  // Ends a dialog that opens after all, and fails.
    MakeParent();
    Recorder().Reset();
    int requests = 0;
    Recorder().HideFonts([&requests, missing](const std::string&) {
      ++requests;
      return missing == 2 ? requests > 1 : missing == 0 || requests <= 13;
    });
    Show();
    ASSERT_THAT(Recorder().simple_message_boxes(), SizeIs(1));
    const auto& box = Recorder().simple_message_boxes().front();
    EXPECT_EQ(box.flags, Uint32{SDL_MESSAGEBOX_ERROR});
    EXPECT_EQ(box.title, "Settings");
    EXPECT_EQ(box.text, "Failed to load font.");
    EXPECT_EQ(box.parent, MakeParent());
    EXPECT_EQ(Recorder().presents(), 0);
    EXPECT_THAT(applied_, IsEmpty());
    EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}), IsEmpty());
    Recorder().ExpectNothingAlive();
  }
}

TEST_F(SettingsDialog, EndsByEscapeCancelCloseAndQuit) {
  const std::vector<std::function<void()>> endings{
      &Escape,
      [] { Press(kInCancel); },
      [] { Press(618, 449); },
      [] { Press(707, 478); },
      [] { CloseWindow(WindowId()); },
      [] { Quit(); },
  };
  for (const auto& ending : endings) {
    testing::FlushEvents();
    DialogScript script;
    script.Wait().Step(ending);
    Show();
    EXPECT_TRUE(script.IsFinished());
    EXPECT_EQ(script.frames(), 2);
  }
  EXPECT_THAT(applied_, IsEmpty());
}

TEST_F(SettingsDialog, QuitIsConsumed) {
  DialogScript script;
  script.Wait().Step([] { Quit(); });
  Show();
  for (const SDL_Event& event : QueuedEvents()) {
    EXPECT_NE(event.type, Uint32{SDL_QUIT});
  }
}

// Events of other windows, or of none, are not the dialog's.
TEST_F(SettingsDialog, IgnoresWhatOtherWindowsGet) {
  const Uint32 parent_id = SDL_GetWindowID(MakeParent());
  DialogScript script;
  script.Wait()
      .Step([parent_id] {
        KeyDown(SDLK_ESCAPE, parent_id);
        KeyDown(SDLK_ESCAPE, 0);
        CloseWindow(parent_id);
        for (const Uint32 id : {parent_id, Uint32{0}}) {
          MouseDown(kInCancel.x, kInCancel.y, SDL_BUTTON_LEFT, 1, id);
          MouseDown(kInApply.x, kInApply.y, SDL_BUTTON_LEFT, 1, id);
          MouseDown(100, NavRow(3).y, SDL_BUTTON_LEFT, 1, id);
          Point(300, Top());
          MouseDown(300, Top(), SDL_BUTTON_LEFT, 1, id);
        }
      })
      .Wait()
      .Step([] { EXPECT_EQ(PageTitle(), "Font Mode"); })
      .Step([] { Press(kInApply); })
      .Step(&Escape);
  Show();
  ASSERT_THAT(applied_, SizeIs(1));
  EXPECT_EQ(Fields(applied_[0]), Fields(SampleValues()));
}

TEST_F(SettingsDialog, IgnoresOtherKeysAndButtons) {
  DialogScript script;
  script.Wait()
      .Step([] {
        for (const SDL_Keycode key : {SDLK_RETURN, SDLK_SPACE, SDLK_TAB, SDLK_a, SDLK_F4}) {
          KeyDown(key, WindowId());
        }
        KeyUp(SDLK_ESCAPE, WindowId());
        for (const Uint8 button :
             std::initializer_list<Uint8>{SDL_BUTTON_RIGHT, SDL_BUTTON_MIDDLE, SDL_BUTTON_X1}) {
          for (const SDL_Point& point : {kInCancel, kInApply, SDL_Point{100, NavRow(3).y}}) {
            MouseDown(point.x, point.y, button, 1, WindowId());
          }
        }
        for (const SDL_Point& point : {kInCancel, kInApply, SDL_Point{100, NavRow(3).y}}) {
          MouseUp(point.x, point.y, SDL_BUTTON_LEFT, 1, WindowId());
        }
        testing::Motion(kInCancel.x, kInCancel.y, SDL_BUTTON_LMASK, WindowId());
        testing::Wheel(3, 0, {300, 200}, WindowId());
        testing::WindowEvent(WindowId(), SDL_WINDOWEVENT_FOCUS_LOST);
      })
      .Wait()
      .Step([] { EXPECT_EQ(PageTitle(), "Font Mode"); })
      .Step(&Escape);
  Show();
  EXPECT_THAT(applied_, IsEmpty());
}

TEST_F(SettingsDialog, EndingLeavesLaterEventsUnread) {
  const std::vector<std::function<void()>> endings{&Escape, [] { Press(kInCancel); },
                                                   [] { CloseWindow(WindowId()); }, [] { Quit(); }};
  for (const auto& ending : endings) {
    testing::FlushEvents();
    DialogScript script;
    script.Wait().Step([&ending] {
      ending();
      Press(kInApply);
      KeyDown(SDLK_F7, SDL_GetWindowID(Recorder().windows().front().window));
    });
    Show();
    EXPECT_THAT(applied_, IsEmpty());
    EXPECT_THAT(QueuedEvents(), Contains(::testing::Truly([](const SDL_Event& event) {
                  return event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_F7;
                })));
  }
}

// --- Frame ---------------------------------------------------------------------------------------

TEST_F(SettingsDialog, FrameIsClearedThenListThenRightAreaThenPageThenBar) {
  DialogScript script;
  script.Wait().Step([] {
    const Frame& frame = Recorder().last_frame();
    ASSERT_FALSE(frame.draws.empty());
    EXPECT_EQ(frame.draws.front().kind, DrawKind::Clear);
    EXPECT_EQ(frame.draws.front().color, kCanvasFill);
    std::vector<SDL_Rect> fills;
    for (const DrawCall& call : frame.OfKind(DrawKind::Fill)) {
      fills.push_back(call.rect);
    }
    EXPECT_THAT(fills,
                ElementsAre(SDL_Rect{0, 0, 224, 436}, NavRow(0), NavRow(1), SDL_Rect{0, 40, 3, 30},
                            NavRow(5), NavRow(7), NavRow(9), NavRow(11), SDL_Rect{225, 0, 595, 436},
                            SDL_Rect{0, 436, 820, 56}, kCancel, kApply));
    EXPECT_EQ(frame.FillAt(225, 0), kCanvasFill);
    EXPECT_EQ(frame.FillAt(819, 435), kCanvasFill);
    EXPECT_EQ(frame.FillAt(224, 0), kCanvasFill);
    EXPECT_EQ(frame.FillAt(223, 435), kListFill);
    const std::vector<std::string> texts = frame.Texts();
    ASSERT_THAT(texts, SizeIs(13 + 7 + 2));
    EXPECT_EQ(texts[13], "Font Mode");
    EXPECT_EQ(texts[20], "Cancel");
    EXPECT_EQ(texts[21], "Apply");
    Escape();
  });
  Show();
}

TEST_F(SettingsDialog, HoverNeedsTheMouseInThisWindow) {
  const SDL_Point row{100, NavRow(3).y};
  DialogScript script;
  script.Step([row] { Recorder().SetPointer(Recorder().windows().front().window, row.x, row.y); })
      .Step([] { EXPECT_THAT(Recorder().last_frame().Fills(kHover), IsEmpty()); })
      .Step([row] { Point(row.x, row.y); })
      .Step([] { EXPECT_THAT(Recorder().last_frame().Fills(kHover), ElementsAre(NavRow(3))); })
      .Step([] { Point(kInApply.x, kInApply.y); })
      .Step([] {
        EXPECT_THAT(Recorder().last_frame().Fills(kHover), IsEmpty());
        EXPECT_THAT(Recorder().last_frame().Fills(kButtonHovered), ElementsAre(kApply));
        Recorder().ClearPointer();
      })
      .Step([] {
        EXPECT_THAT(Recorder().last_frame().Fills(kButtonHovered), IsEmpty());
        Escape();
      });
  Show();
}

// The pointer is where it was when the frame began, whatever the events do.
TEST_F(SettingsDialog, PointerIsReadBeforeTheEvents) {
  DialogScript script;
  script
      .Step([] {
        Point(100, NavRow(3).y);
        Press(kInApply);
      })
      .Step([] { EXPECT_THAT(Recorder().last_frame().Fills(kHover), ElementsAre(NavRow(3))); })
      .Step([] {
        EXPECT_THAT(Recorder().last_frame().Fills(kHover), ElementsAre(NavRow(6)));
        Escape();
      });
  ShowSettingsDialog(MakeParent(), 1.0F, SampleValues(),
                     [](const SettingsDialogValues&) { Point(100, NavRow(6).y); });
}

TEST_F(SettingsDialog, EventsArePumpedBeforeThePointerIsRead) {
  DialogScript script;
  script.Step([] { Recorder().ForgetCalls(); }).Step([] {
    std::vector<std::string> calls =
        Recorder().CallsAmong({"SDL_PumpEvents", "SDL_GetMouseFocus", "SDL_PollEvent"});
    // Once more for each event that SDL itself has to tell.
    calls.erase(std::unique(calls.begin(), calls.end()), calls.end());
    EXPECT_THAT(calls, ElementsAre("SDL_PumpEvents", "SDL_GetMouseFocus", "SDL_PollEvent"));
    Escape();
  });
  Show();
}

// --- Navigation ----------------------------------------------------------------------------------

TEST_F(SettingsDialog, EveryItemRowSelectsItsPage) {
  DialogScript script;
  script.Wait().Step([] { EXPECT_EQ(PageTitle(), "Font Mode"); });
  for (const NavRowCase& c : ItemRows()) {
    const SDL_Rect row = NavRow(c.row);
    for (const SDL_Point& point :
         {SDL_Point{0, row.y}, SDL_Point{223, row.y + 29}, SDL_Point{223, row.y}}) {
      script.Step([point] { Press(point); }).Step([c, point] {
        EXPECT_EQ(PageTitle(), c.title) << point.x << ", " << point.y;
        Press(100, NavRow(c.row == 1 ? 2 : 1).y);  // Away again.
      });
    }
  }
  script.Step(&Escape);
  Show();
}

TEST_F(SettingsDialog, NothingElseOfTheListSelects) {
  DialogScript script;
  script.Wait();
  for (const SDL_Point& point :
       {SDL_Point{100, 10}, SDL_Point{100, 39}, SDL_Point{100, 9}, SDL_Point{100, 160},
        SDL_Point{100, 400}, SDL_Point{100, 435}, SDL_Point{224, 75}, SDL_Point{-1, 75},
        SDL_Point{100, 436}, SDL_Point{100, 491}}) {
    script.Step([point] { Press(point); }).Step([point] {
      EXPECT_EQ(PageTitle(), "Font Mode") << point.x << ", " << point.y;
    });
  }
  script.Step(&Escape);
  Show();
}

TEST_F(SettingsDialog, EveryOpeningStartsOnFontMode) {
  for (int opening = 0; opening < 2; ++opening) {
    testing::FlushEvents();
    DialogScript script;
    script.Wait().Step([] {
      EXPECT_EQ(PageTitle(), "Font Mode");
      PressRow(12);
    });
    script.Step([] {
      EXPECT_EQ(PageTitle(), "HDD Sounds");
      Escape();
    });
    Show();
  }
}

// --- Which clicks reach the page -----------------------------------------------------------------

// With the pointer over the third mode, a click anywhere in the right area chooses that.
TEST_F(SettingsDialog, ClickPositionDecidesWhetherThePageGetsIt) {
  struct Case {
    SDL_Point press;
    bool reaches;
  };
  for (const Case& c : {
           Case{{225, 0}, true},
           Case{{819, 435}, true},
           Case{{225, 435}, true},
           Case{{900, 200}, true},
           Case{{300, -5}, true},
           Case{{224, 200}, false},  // the separator
           Case{{225, 436}, false},  // the bar
           Case{{500, 491}, false},
           Case{{617, 449}, false},
           Case{{708, 460}, false},
           Case{{808, 460}, false},
           Case{{700, 448}, false},
           Case{{700, 479}, false},
           Case{{100, 20}, false},   // a heading
           Case{{100, 420}, false},  // below the rows
           Case{{100, 55}, false},   // the row of the page that is shown
           Case{{0, 0}, false},
       }) {
    testing::FlushEvents();
    applied_.clear();
    DialogScript script;
    script.Step([] { Point(300, Top() + 2 * 34); })
        .Step([&c] { Press(c.press); })
        .Step([] { Press(kInApply); })
        .Step(&Escape);
    Show();
    ASSERT_THAT(applied_, SizeIs(1));
    EXPECT_EQ(applied_[0].font_mode, c.reaches ? "ttf-hires" : "ttf")
        << c.press.x << ", " << c.press.y;
  }
}

TEST_F(SettingsDialog, PointerDecidesWhatAClickHits) {
  DialogScript script;
  script
      .Step([] { Press(300, Top() + 34 * 3); })  // The pointer is nowhere.
      .Step([] { Press(kInApply); })
      .Step([] {
        Point(300, Top());
        Press(300, Top() + 34 * 3);
      })
      .Step([] { Press(kInApply); })
      .Step(&Escape);
  Show();
  ASSERT_THAT(applied_, SizeIs(2));
  EXPECT_EQ(applied_[0].font_mode, "ttf");
  EXPECT_EQ(applied_[1].font_mode, "pixel");
}

TEST_F(SettingsDialog, PressesOfOneFrameAreHandledInTheirOrder) {
  struct Case {
    const char* name;
    std::vector<SDL_Point> presses;
    std::size_t applies;
    const char* page;
    const char* font_mode;
  };
  const SDL_Point page{300, 200};
  const SDL_Point bar{300, 450};
  const SDL_Point heading{100, 20};
  const SDL_Point below_list{100, 420};
  const SDL_Point separator{224, 200};
  const SDL_Point fps_row{100, NavRow(2).y};
  const SDL_Point font_row{100, NavRow(1).y};
  for (const Case& c : std::vector<Case>{
           {"apply twice", {kInApply, kInApply}, 2, "Font Mode", "ttf"},
           {"page, then apply", {page, kInApply}, 1, "Font Mode", "ttf-hires"},
           {"apply, then page", {kInApply, page}, 1, "Font Mode", "ttf-hires"},
           {"page, then bar", {page, bar}, 0, "Font Mode", "ttf-hires"},
           {"bar, then page", {bar, page}, 0, "Font Mode", "ttf-hires"},
           {"page, then heading", {page, heading}, 0, "Font Mode", "ttf-hires"},
           {"heading, then page", {heading, page}, 0, "Font Mode", "ttf-hires"},
           {"page, then dead ground", {page, below_list, separator}, 0, "Font Mode", "ttf-hires"},
           {"dead ground alone", {below_list, separator, heading, bar}, 0, "Font Mode", "ttf"},
           {"page, then its own row", {page, font_row}, 0, "Font Mode", "ttf-hires"},
           {"page, then all the rest", {page, heading, kInApply, bar}, 1, "Font Mode", "ttf-hires"},
           {"page, then another row", {page, fps_row}, 0, "Target FPS", "ttf"},
           {"two rows", {fps_row, font_row, fps_row}, 0, "Target FPS", "ttf"},
       }) {
    testing::FlushEvents();
    applied_.clear();
    DialogScript script;
    script.Step([] { Point(300, Top() + 2 * 34); })
        .Step([&c] {
          for (const SDL_Point& point : c.presses) {
            Press(point);
          }
        })
        .Step([&c, this] {
          EXPECT_EQ(PageTitle(), c.page) << c.name;
          EXPECT_THAT(applied_, SizeIs(c.applies)) << c.name;
          for (const SettingsDialogValues& values : applied_) {
            EXPECT_EQ(values.font_mode, "ttf") << c.name << ": a click of the same frame came late";
          }
          Recorder().ClearPointer();
          Press(kInApply);
        })
        .Step(&Escape);
    Show();
    ASSERT_FALSE(applied_.empty());
    EXPECT_EQ(applied_.back().font_mode, c.font_mode) << c.name;
  }
}

// Whatever ends the dialog in the frame of a press on the page: the press changes nothing.
TEST_F(SettingsDialog, EndsInTheFrameOfAPressOnThePage) {
  for (const auto& end : std::vector<std::function<void()>>{
           [] { Press(kInCancel); }, &Escape, [] { CloseWindow(WindowId()); }, [] { Quit(); }}) {
    testing::FlushEvents();
    DialogScript script;
    script.Step([] { Point(300, Top() + 2 * 34); }).Step([&end] {
      Press(300, 200);
      end();
    });
    Show();
    EXPECT_TRUE(script.IsFinished());
    EXPECT_EQ(Recorder().alive(), AliveCounts());
  }
  EXPECT_THAT(applied_, IsEmpty());
}

// A row and a press on the page in one frame: the click goes to the page selected by then.
TEST_F(SettingsDialog, ClickGoesToThePageSelectedBeforeIt) {
  DialogScript script;
  script.Step([] { Point(300, Top() + 34); })
      .Step([] {
        PressRow(2);
        Press(300, Top() + 34);
      })
      .Step([] { Press(kInApply); })
      .Step(&Escape);
  Show();
  ASSERT_THAT(applied_, SizeIs(1));
  EXPECT_EQ(applied_[0].target_fps, 30);
  EXPECT_EQ(applied_[0].font_mode, "ttf");
}

TEST_F(SettingsDialog, ChangeShowsInTheNextFrame) {
  const auto dot_row = [] {
    for (const DrawCall& call : Recorder().last_frame().OfKind(DrawKind::Point)) {
      if (call.color == kAccent) {
        return (call.from.y - (Top() + 13)) / 34;
      }
    }
    return -1;
  };
  DialogScript script;
  script.Wait()
      .Step([] { PointAndPress(300, Top() + 3 * 34); })
      .Step([dot_row] { EXPECT_EQ(dot_row(), 1); })
      .Step([dot_row] {
        EXPECT_EQ(dot_row(), 3);
        Escape();
      });
  Show();
}

// Clicks are over with their frame.
TEST_F(SettingsDialog, ClickCountsInOneFrameOnly) {
  DialogScript script;
  script.Step([] { PressRow(RowOf(5)); })
      .Step([] { PointAndPress(300, Top()); })  // The checkbox "Enable HDD sounds".
      .Wait(3)
      .Step([] { Press(kInApply); })
      .Step([] { Press(300, Top()); })
      .Step([] { Press(kInApply); })
      .Step(&Escape);
  Show();
  ASSERT_THAT(applied_, SizeIs(2));
  EXPECT_FALSE(applied_[0].hdd_sounds_enabled);
  EXPECT_TRUE(applied_[1].hdd_sounds_enabled);
}

// --- Every setting through the whole dialog ------------------------------------------------------

TEST_F(SettingsDialog, EachControlChangesItsValueAndNoOther) {
  using Values = SettingsDialogValues;
  struct Case {
    int page;
    int below_top;
    std::function<void(Values*)> change;
  };
  const std::vector<Case> cases{
      {0, 0, [](Values* v) { v->font_mode = "pixel"; }},
      {0, 34, [](Values* v) { v->font_mode = "ttf"; }},
      {0, 68, [](Values* v) { v->font_mode = "ttf-hires"; }},
      {0, 102, [](Values* v) { v->font_mode = "ttf-custom"; }},
      {1, 0, [](Values* v) { v->target_fps = 25; }},
      {1, 34, [](Values* v) { v->target_fps = 30; }},
      {1, 68, [](Values* v) { v->target_fps = 50; }},
      {1, 102, [](Values* v) { v->target_fps = 60; }},
      {2, 0, [](Values* v) { v->renderer_mode = "hardware"; }},
      {2, 34, [](Values* v) { v->renderer_mode = "software"; }},
      {7, 86, [](Values* v) { v->screenshot_capture_with_opengl_shaders = false; }},
      {7, 146, [](Values* v) { v->screenshot_capture_size_mode = 0; }},
      {7, 180, [](Values* v) { v->screenshot_capture_size_mode = 1; }},
      {6, 78, [](Values* v) { v->allow_mouse_capture_in_text_mode = false; }},
      {5, 0, [](Values* v) { v->hdd_sounds_enabled = false; }},
      {3, 0, [](Values*) {}},
      {4, 0, [](Values*) {}},
  };
  for (const Case& c : cases) {
    testing::FlushEvents();
    applied_.clear();
    DialogScript script;
    script.Step([&c] { PressRow(RowOf(c.page)); })
        .Step([&c] { PointAndPress(300, Top() + c.below_top); })
        .Step([] { Press(kInApply); })
        .Step(&Escape);
    Show();
    Values expected = SampleValues();
    c.change(&expected);
    ASSERT_THAT(applied_, SizeIs(1));
    EXPECT_EQ(Fields(applied_[0]), Fields(expected)) << c.page << " at " << c.below_top;
  }
}

TEST_F(SettingsDialog, DraggingASliderReportsEveryFrameWithFullPrecision) {
  struct Case {
    int page, below_top;
    double low, high;
    double SettingsDialogValues::*field;
  };
  for (const Case& c : {Case{5, 60, 0.0, 1.0, &SettingsDialogValues::hdd_sounds_volume},
                        Case{6, 22, 0.25, 3.0, &SettingsDialogValues::mouse_capture_gain}}) {
    testing::FlushEvents();
    applied_.clear();
    const int y = Top() + c.below_top + 8;
    std::vector<double> expected;
    DialogScript script;
    script.Step([&c] { PressRow(RowOf(c.page)); });
    for (const int x : {247, 260, 261, 400, 527, 534, 239}) {
      script.Step([x, y] { Point(x, y, SDL_BUTTON_LMASK); }).Step([] { Press(kInApply); });
      const double fraction = std::min(std::max((x - 247) / 280.0, 0.0), 1.0);
      expected.push_back(c.low + fraction * (c.high - c.low));
    }
    // Outside, with another button, or released: the value stays.
    for (const auto& [x, buttons] : std::vector<std::pair<int, Uint32>>{
             {238, SDL_BUTTON_LMASK}, {535, SDL_BUTTON_LMASK}, {400, SDL_BUTTON_RMASK}, {400, 0}}) {
      script.Step([x = x, y, buttons = buttons] { Point(x, y, buttons); }).Step([] {
        Press(kInApply);
      });
      expected.push_back(expected.back());
    }
    script.Step(&Escape);
    Show();
    ASSERT_THAT(applied_, SizeIs(expected.size()));
    for (std::size_t i = 0; i < expected.size(); ++i) {
      EXPECT_EQ(applied_[i].*c.field, expected[i]) << c.page << " step " << i;
    }
  }
}

// A press needs no button bit to be a click, and a drag no press.
TEST_F(SettingsDialog, HeldButtonDoesNotClick) {
  DialogScript script;
  script.Step([] { Point(300, Top(), SDL_BUTTON_LMASK); })
      .Wait(2)
      .Step([] { Press(kInApply); })
      .Step(&Escape);
  Show();
  EXPECT_EQ(applied_.at(0).font_mode, "ttf");
}

TEST_F(SettingsDialog, ValuesThatNoControlOffersStayUntouched) {
  SettingsDialogValues odd = SampleValues();
  odd.mouse_capture_gain = 5.0;
  odd.hdd_sounds_volume = -0.2;
  odd.target_fps = 31;
  odd.font_mode = "";
  odd.screenshot_capture_size_mode = -4;
  DialogScript script;
  for (const NavRowCase& c : ItemRows()) {
    script.Step([&c] { PressRow(c.row); }).Wait();
  }
  script.Step([] { Press(kInApply); }).Step(&Escape);
  Show(odd);
  ASSERT_THAT(applied_, SizeIs(1));
  EXPECT_EQ(Fields(applied_[0]), Fields(odd));
}

// --- Apply ---------------------------------------------------------------------------------------

TEST_F(SettingsDialog, ApplyHandsOverTheValuesAndStaysOpen) {
  DialogScript script;
  script.Wait();
  for (const SDL_Point& inside : {SDL_Point{718, 449}, SDL_Point{807, 478}}) {
    script.Step([inside] { Press(inside); });
  }
  for (const SDL_Point& outside :
       {SDL_Point{717, 449}, SDL_Point{808, 478}, SDL_Point{718, 448}, SDL_Point{807, 479}}) {
    script.Step([outside] { Press(outside); });
  }
  script.Wait().Step(&Escape);
  Show();
  ASSERT_THAT(applied_, SizeIs(2));
  EXPECT_EQ(Fields(applied_[0]), Fields(SampleValues()));
  EXPECT_EQ(Fields(applied_[1]), Fields(SampleValues()));
}

TEST_F(SettingsDialog, ClosingDropsWhatWasChangedSinceTheLastApply) {
  DialogScript script;
  script.Wait()
      .Step([] { PointAndPress(300, Top()); })
      .Step([] { Press(kInApply); })
      .Step([] { PointAndPress(300, Top() + 34); })
      .Step([] { Press(kInCancel); });
  Show();
  ASSERT_THAT(applied_, SizeIs(1));
  EXPECT_EQ(applied_[0].font_mode, "pixel");
}

TEST_F(SettingsDialog, ApplyMayBeEmpty) {
  DialogScript script;
  script.Step([] { Press(kInApply); })
      .Step([] { EXPECT_TRUE(Recorder().last_frame().HasText("Apply")); })
      .Step(&Escape);
  ShowSettingsDialog(MakeParent(), 1.0F, SampleValues(), {});
}

TEST_F(SettingsDialog, WorksOnACopyOfTheInitialValues) {
  SettingsDialogValues initial = SampleValues();
  DialogScript script;
  script.Step([&initial] { initial.font_mode = "changed"; })
      .Step([] { PointAndPress(300, Top() + 34 * 2); })
      .Step([] { Press(kInApply); })
      .Step(&Escape);
  Show(initial);
  EXPECT_EQ(applied_.at(0).font_mode, "ttf-hires");
  EXPECT_EQ(initial.font_mode, "changed");
}

TEST_F(SettingsDialog, ExceptionOfApplyLeavesNothingBehind) {
  DialogScript script;
  script.Wait().Step([] { Press(kInApply); });
  EXPECT_THROW(ShowSettingsDialog(
                   MakeParent(), 1.0F, SampleValues(),
                   [](const SettingsDialogValues&) { throw std::runtime_error("disk full"); }),
               std::runtime_error);
  EXPECT_EQ(Recorder().alive(), AliveCounts());
  EXPECT_THAT(Recorder().CallsAmong({"SDL_RaiseWindow", "SDL_SetWindowInputFocus"}, MakeParent()),
              ElementsAre("SDL_RaiseWindow", "SDL_SetWindowInputFocus"));
}

TEST_F(SettingsDialog, ExceptionOfTheHeartbeatLeavesNothingBehind) {
  for (const int wait : {0, 2}) {
    testing::FlushEvents();
    DialogScript script;
    script.Wait(wait).Step([] { throw std::runtime_error("host failed"); });
    EXPECT_THROW(Show(), std::runtime_error);
    EXPECT_EQ(Recorder().alive(), AliveCounts());
  }
}

TEST_F(SettingsDialog, ApplyMayOpenAnotherDialog) {
  DialogScript script;
  script.Wait()
      .Step([] { Press(kInApply); })
      .Wait()
      .Step([] {
        EXPECT_TRUE(Recorder().last_frame().HasText("Saved"));
        KeyDown(SDLK_ESCAPE, WindowId());
      })
      .Wait()
      .Step([] { EXPECT_TRUE(Recorder().last_frame().HasText("Cancel")); })
      .Step([] { PressRow(12); })
      .Step([] { EXPECT_EQ(PageTitle(), "HDD Sounds"); })
      .Step(&Escape);
  SDL_Window* settings = nullptr;
  ShowSettingsDialog(MakeParent(), 1.0F, SampleValues(), [&](const SettingsDialogValues&) {
    settings = Recorder().newest_window();
    SdlMessageBox::Config config;
    config.title = "Saved";
    SdlMessageBox(config).Show(settings, 1.0F);
  });
  EXPECT_EQ(Recorder().windows().back().title, "Saved");
  EXPECT_EQ(Recorder().windows().back().modal_for, settings);
}

// --- Font browse ---------------------------------------------------------------------------------

class SettingsFontBrowse : public SettingsDialog {
 protected:
  void SetUp() override {
    SettingsDialog::SetUp();
    fs::create_directories(folder_.path() / "fonts");
    for (const char* name : {"fonts/alpha.ttf", "fonts/beta.otf"}) {
      std::ofstream(folder_.path() / name) << "font";
    }
  }

  // The directory that the open picker shows.
  static bool PickerShows(const std::string& directory) {
    return Recorder().last_frame().HasText(directory);
  }

  static SDL_Point InBrowse() { return {760, Top() + 136 + 20}; }
  std::string Fonts() const { return (folder_.path() / "fonts").string(); }

  SettingsDialogValues CustomValues(const std::string& path) const {
    SettingsDialogValues values = SampleValues();
    values.font_mode = "ttf-custom";
    values.custom_font_path = path;
    return values;
  }

 private:
  TemporaryDirectory folder_;
};

TEST_F(SettingsFontBrowse, ChosenFileBecomesTheCustomFont) {
  SDL_Window* settings = nullptr;
  DialogScript script;
  script.Wait()
      .Step([&settings] {
        settings = Recorder().newest_window();
        PointAndPress(InBrowse().x, InBrowse().y);
      })
      .Wait()
      .Step([this] {
        EXPECT_EQ(Recorder().windows().back().title, "Select TTF Font");
        EXPECT_TRUE(PickerShows(Fonts()));
        KeyDown(SDLK_DOWN);
        KeyDown(SDLK_DOWN);
        KeyDown(SDLK_RETURN);
      })
      .Wait(2)
      .Step([] {
        EXPECT_TRUE(Recorder().last_frame().HasText("beta.otf"));
        EXPECT_EQ(PageTitle(), "Font Mode");
        Press(kInApply);
      })
      .Step(&Escape);
  Show(CustomValues(Fonts() + "/alpha.ttf"));
  EXPECT_EQ(Recorder().windows().back().modal_for, settings);
  ASSERT_THAT(applied_, SizeIs(1));
  EXPECT_EQ(Fields(applied_[0]), Fields(CustomValues(Fonts() + "/beta.otf")));
}

TEST_F(SettingsFontBrowse, CancelledPickerChangesNothing) {
  DialogScript script;
  script.Wait()
      .Step([] { PointAndPress(InBrowse().x, InBrowse().y); })
      .Wait()
      .Step([] {
        EXPECT_EQ(Recorder().windows().back().title, "Select TTF Font");
        KeyDown(SDLK_ESCAPE);
      })
      .Wait()
      .Step([] { Press(kInApply); })
      .Step(&Escape);
  Show(CustomValues(Fonts() + "/alpha.ttf"));
  ASSERT_THAT(applied_, SizeIs(1));
  EXPECT_EQ(Fields(applied_[0]), Fields(CustomValues(Fonts() + "/alpha.ttf")));
}

TEST_F(SettingsFontBrowse, ChosenFileSwitchesTheMode) {
  SettingsDialogValues values = SampleValues();
  values.font_mode = "pixel";
  values.custom_font_path = Fonts() + "/gone.ttf";
  SettingsDialogValues expected = values;
  expected.font_mode = "ttf-custom";
  expected.custom_font_path = Fonts() + "/alpha.ttf";
  DialogScript script;
  script.Wait().Step([] {
    KeyDown(SDLK_DOWN);
    KeyDown(SDLK_RETURN);
  });
  HandleSettingsFontPickerHit(&values, MakeParent(), {false, "", "", 0.0, false, true});
  EXPECT_EQ(Fields(values), Fields(expected));
  EXPECT_EQ(Recorder().windows().back().modal_for, MakeParent());
}

TEST_F(SettingsFontBrowse, NeedsValuesAndTheWishToBrowse) {
  SettingsDialogValues values = SampleValues();
  HandleSettingsFontPickerHit(nullptr, MakeParent(), {false, "", "", 0.0, false, true});
  HandleSettingsFontPickerHit(&values, MakeParent(), {true, "font_mode", "x", 1.0, true, false});
  EXPECT_THAT(Recorder().windows(), SizeIs(1));  // The parent.
  EXPECT_EQ(Fields(values), Fields(SampleValues()));
}

TEST_F(SettingsFontBrowse, StartsInTheFolderOfTheCustomFont) {
  struct Case {
    std::string path, directory;
  };
  for (const Case& c : {
           Case{Fonts() + "/alpha.ttf", Fonts()},
           Case{Fonts() + "/", Fonts()},
           Case{"", "data/ttf"},
           Case{"bare.ttf", "data/ttf"},
           Case{"/root.ttf", "/"},
           Case{"tests/no-such.ttf", "tests"},
       }) {
    testing::FlushEvents();
    SettingsDialogValues values = CustomValues(c.path);
    DialogScript script;
    script.Wait().Step([&c] {
      EXPECT_TRUE(PickerShows(c.directory)) << c.path;
      KeyDown(SDLK_ESCAPE);
    });
    HandleSettingsFontPickerHit(&values, MakeParent(), {false, "", "", 0.0, false, true});
    EXPECT_EQ(Fields(values), Fields(CustomValues(c.path)));
  }
}

// --- The loop by itself --------------------------------------------------------------------------

class SettingsDialogLoop : public SettingsDialog {
 protected:
  void SetUp() override {
    SettingsDialog::SetUp();
    bundle_ = CreateModalWindowBundle(nullptr, "Settings", 60, 50, 820, 492, SDL_WINDOW_HIDDEN,
                                      ModalRendererMode::Software);
    Recorder().MarkBaseline();
  }
  void TearDown() override {
    bundle_ = ModalWindowBundle();
    SettingsDialog::TearDown();
  }

  SettingsDialogSession MakeSession() {
    SettingsDialogSession session;
    session.window = bundle_.window.get();
    session.renderer = bundle_.renderer.get();
    session.nav_items = &nav_items_;
    session.cancel_button = kCancel;
    session.apply_button = kApply;
    session.values = SampleValues();
    session.panel_id = 0;
    return session;
  }

  std::vector<NavItem> nav_items_ = BuildSettingsNavItems();

 private:
  ModalWindowBundle bundle_;
};

TEST_F(SettingsDialogLoop, NeedsSessionWindowRendererAndList) {
  int heartbeats = 0;
  SetModalDialogHeartbeat([&heartbeats] {
    ++heartbeats;
    Quit();
  });
  RunSettingsDialogLoop(nullptr, nullptr);
  for (const int missing : {0, 1, 2}) {
    SettingsDialogSession session = MakeSession();
    if (missing == 0) {
      session.window = nullptr;
    } else if (missing == 1) {
      session.renderer = nullptr;
    } else {
      session.nav_items = nullptr;
    }
    RunSettingsDialogLoop(&session, nullptr);
  }
  EXPECT_EQ(heartbeats, 0);
  EXPECT_EQ(Recorder().presents(), 0);
}

TEST_F(SettingsDialogLoop, RunsWithoutFontsAndShowsTheWindowOnce) {
  SettingsDialogSession session = MakeSession();
  DialogScript script;
  script.Wait(2).Step(&Escape);
  RunSettingsDialogLoop(&session, nullptr);
  EXPECT_TRUE(session.shown);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_ShowWindow"}), SizeIs(1));
  EXPECT_THAT(Recorder().last_frame().Texts(), IsEmpty());
}

TEST_F(SettingsDialogLoop, WindowThatIsShownStaysAsItIs) {
  SettingsDialogSession session = MakeSession();
  session.shown = true;
  DialogScript script;
  script.Wait(2).Step(&Escape);
  RunSettingsDialogLoop(&session, nullptr);
  EXPECT_THAT(Recorder().CallsAmong({"SDL_ShowWindow", "SDL_RaiseWindow"}), IsEmpty());
}

TEST_F(SettingsDialogLoop, EndingEventAppliesNoHitAndOpensNoPicker) {
  SettingsDialogSession session = MakeSession();
  session.values.font_mode = "ttf-custom";
  DialogScript script;
  script.Wait()
      .Step([] {
        PointAndPress(300, 79);  // "Pixel", on a page without fonts.
        Escape();
      })
      .MayEndEarly();
  RunSettingsDialogLoop(&session, nullptr);
  EXPECT_EQ(session.values.font_mode, "ttf-custom");
  testing::FlushEvents();
  script.Wait().Step([] {
    PointAndPress(760, 79 + 136 + 20);
    Escape();
  });
  const std::size_t windows = Recorder().windows().size();
  RunSettingsDialogLoop(&session, nullptr);
  EXPECT_EQ(Recorder().windows().size(), windows);
  EXPECT_TRUE(script.IsFinished());
}

TEST_F(SettingsDialogLoop, PickerOpensBeforeTheBottomBarIsDrawn) {
  SettingsDialogSession session = MakeSession();
  session.values.font_mode = "ttf-custom";
  session.regular_font = OpenSdlUiFontHandle(15, false, SdlUiFontKind::Ui);
  const int browse = 20 + 17 + 6 + TTF_FontHeight(session.regular_font.get()) + 20 + 144;
  DialogScript script;
  script.Step([browse] { PointAndPress(760, browse + 14); })
      .Step([] {
        // The picker's first frame: what is drawn and not presented is the settings dialog's.
        EXPECT_TRUE(Recorder().unpresented().HasText("Browse..."));
        EXPECT_FALSE(Recorder().unpresented().HasText("Apply"));
      })
      .Step([] { KeyDown(SDLK_ESCAPE); })
      .Step([] {
        EXPECT_TRUE(Recorder().last_frame().HasText("Apply"));
        Escape();
      });
  RunSettingsDialogLoop(&session, nullptr);
}

// Only rows of kind 1 can be selected, whatever other kinds a host's list holds.
TEST_F(SettingsDialogLoop, RowOfAnotherKindIsNotSelected) {
  nav_items_ = {{0, "Heading", -1}, {2, "Other", 1}, {-1, "Another", 2}, {1, "Item", 3}};
  SettingsDialogSession session = MakeSession();
  EXPECT_EQ(FindInitialSettingsPanel(nav_items_), 3);
  DialogScript script;
  script.Step([] { PressRow(1); })
      .Step([] { PressRow(2); })
      .Step([&session] {
        EXPECT_EQ(session.panel_id, 0);
        PressRow(3);
      })
      .Step(&Escape);
  RunSettingsDialogLoop(&session, nullptr);
  EXPECT_EQ(session.panel_id, 3);
}

TEST_F(SettingsDialogLoop, WithoutItemsShowsNoPage) {
  nav_items_.clear();
  SettingsDialogSession session = MakeSession();
  session.panel_id = FindInitialSettingsPanel(nav_items_);
  session.regular_font = OpenSdlUiFontHandle(15, false, SdlUiFontKind::Ui);
  DialogScript script;
  script.Wait().Step([] {
    EXPECT_THAT(Recorder().last_frame().Texts(),
                ElementsAre("Select an item on the left to see options.", "Cancel", "Apply"));
    Escape();
  });
  RunSettingsDialogLoop(&session, nullptr);
}

// Buttons come before the list, and of rows that hold the point the first item counts.
TEST_F(SettingsDialogLoop, ButtonsComeBeforeTheList) {
  SettingsDialogSession session = MakeSession();
  session.apply_button = NavRow(2);
  int applies = 0;
  DialogScript script;
  script.Wait().Step([] { PressRow(2); }).Step(&Escape);
  RunSettingsDialogLoop(&session, [&applies](const SettingsDialogValues&) { ++applies; });
  EXPECT_EQ(applies, 1);
  EXPECT_EQ(session.panel_id, 0);
}

}  // namespace
}  // namespace quindle::frontend::gui
