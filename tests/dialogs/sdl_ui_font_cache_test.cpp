// Which font file a request opens, what the cache remembers, and drawing one line of text.

#include "frontend/gui/sdl_ui_font_cache.h"

#include <gmock/gmock.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "support/dialog_test.h"

namespace quindle::frontend::gui {
namespace {

using testing::DialogTest;
using testing::DrawCall;
using testing::DrawKind;
using ::testing::ElementsAre;
using testing::FontRequest;
using ::testing::IsEmpty;
using testing::Recorder;
using ::testing::SizeIs;

static_assert(static_cast<int>(SdlUiFontKind::Ui) == 0);
static_assert(static_cast<int>(SdlUiFontKind::Body) == 1);

using Paths = std::vector<std::string>;

const Paths& RegularPaths() {
  static const Paths paths{
      "./data/ttf/IBMPlexSans-Regular.ttf",
      "data/ttf/IBMPlexSans-Regular.ttf",
      ".\\data\\ttf\\IBMPlexSans-Regular.ttf",
  };
  return paths;
}

const Paths& SemiBoldPaths() {
  static const Paths paths{
      "./data/ttf/IBMPlexSans-SemiBold.ttf",
      "data/ttf/IBMPlexSans-SemiBold.ttf",
      ".\\data\\ttf\\IBMPlexSans-SemiBold.ttf",
  };
  return paths;
}

const Paths& SystemPaths() {
  static const Paths paths{
      "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
      "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf",
      "/usr/share/fonts/TTF/DejaVuSans.ttf",
      "/usr/share/fonts/TTF/DejaVuSansMono.ttf",
      "/System/Library/Fonts/Courier New.ttf",
      "/Library/Fonts/Courier New.ttf",
      "/Library/Fonts/Arial.ttf",
      "C:\\Windows\\Fonts\\cour.ttf",
      "C:\\Windows\\Fonts\\COURIER.TTF",
      "C:\\Windows\\Fonts\\arial.ttf",
  };
  return paths;
}

// A kind of request and all that it tries while nothing opens.
struct RequestCase {
  bool bold;
  SdlUiFontKind kind;
  std::vector<const Paths*> lists;

  Paths Tried() const {
    Paths tried;
    for (const Paths* list : lists) {
      tried.insert(tried.end(), list->begin(), list->end());
    }
    return tried;
  }
};

std::vector<RequestCase> RequestCases() {
  const Paths* const regular = &RegularPaths();
  const Paths* const semi_bold = &SemiBoldPaths();
  const Paths* const system = &SystemPaths();
  return {
      {false, SdlUiFontKind::Body, {regular, semi_bold, regular, system}},
      {false, SdlUiFontKind::Ui, {semi_bold, regular, system}},
      {true, SdlUiFontKind::Body, {semi_bold, system}},
      {true, SdlUiFontKind::Ui, {semi_bold, system}},
  };
}

std::string NameOf(const RequestCase& request) {
  return std::string(request.bold ? "bold " : "plain ") +
         (request.kind == SdlUiFontKind::Ui ? "Ui" : "Body");
}

Paths RequestedPaths() {
  Paths paths;
  for (const FontRequest& request : Recorder().font_requests()) {
    paths.push_back(request.path);
  }
  return paths;
}

void ExpectNoTtfCall() {
  for (const testing::Call& call : Recorder().calls()) {
    EXPECT_FALSE(call.function.starts_with("TTF_")) << call.function;
  }
}

// --- Opening -------------------------------------------------------------------------------------

class UiFontOpening : public DialogTest {};

TEST_F(UiFontOpening, TriesTheCandidatesInOrder) {
  for (const RequestCase& request : RequestCases()) {
    Recorder().Reset();
    Recorder().HideAllFonts();
    EXPECT_EQ(OpenSdlUiFontHandle(14, request.bold, request.kind), nullptr);
    EXPECT_EQ(RequestedPaths(), request.Tried()) << NameOf(request);
  }
}

// For each place in the order: everything before it fails, the file there opens.
TEST_F(UiFontOpening, FirstFileThatOpensIsTaken) {
  for (const RequestCase& request : RequestCases()) {
    const Paths tried = request.Tried();
    for (std::size_t place = 0; place < tried.size(); ++place) {
      Recorder().Reset();
      Recorder().RedirectFont(tried[place], "data/ttf/IBMPlexSans-Regular.ttf");
      Recorder().HideFonts(
          [place](const std::string&) { return Recorder().font_requests().size() < place; });
      const OwnedTtfFont font = OpenSdlUiFontHandle(13, request.bold, request.kind);
      EXPECT_NE(font, nullptr) << NameOf(request) << " at " << place;
      ASSERT_THAT(Recorder().font_requests(), SizeIs(place + 1));
      const FontRequest opened{tried[place], 13, true,
                               request.bold ? TTF_STYLE_BOLD : TTF_STYLE_NORMAL};
      EXPECT_EQ(Recorder().font_requests().back(), opened) << NameOf(request);
      EXPECT_EQ(Recorder().CallCount("TTF_SetFontStyle"), 1);
      EXPECT_EQ(TTF_GetFontStyle(font.get()), opened.style);
    }
  }
}

TEST_F(UiFontOpening, OpensTheFrontEndsOwnFaces) {
  const std::pair<RequestCase, const char*> cases[] = {
      {{false, SdlUiFontKind::Body, {}}, "./data/ttf/IBMPlexSans-Regular.ttf"},
      {{false, SdlUiFontKind::Ui, {}}, "./data/ttf/IBMPlexSans-SemiBold.ttf"},
      {{true, SdlUiFontKind::Body, {}}, "./data/ttf/IBMPlexSans-SemiBold.ttf"},
      {{true, SdlUiFontKind::Ui, {}}, "./data/ttf/IBMPlexSans-SemiBold.ttf"},
  };
  for (const auto& [request, path] : cases) {
    Recorder().Reset();
    const OwnedTtfFont font = OpenSdlUiFontHandle(20, request.bold, request.kind);
    ASSERT_NE(font, nullptr);
    EXPECT_THAT(RequestedPaths(), ElementsAre(path)) << NameOf(request);
    EXPECT_EQ(Recorder().font_requests()[0].size, 20);
  }
}

TEST_F(UiFontOpening, SizeBelowOneDoesNotTouchSdlTtf) {
  for (const int size : {0, -1, -1000}) {
    EXPECT_EQ(OpenSdlUiFontHandle(size, false, SdlUiFontKind::Ui), nullptr);
    EXPECT_EQ(OpenSdlUiFontHandle(size, true, SdlUiFontKind::Body), nullptr);
  }
  ExpectNoTtfCall();
  EXPECT_NE(OpenSdlUiFontHandle(1, false, SdlUiFontKind::Ui), nullptr);
}

TEST_F(UiFontOpening, StartsSdlTtfOnce) {
  ASSERT_EQ(TTF_WasInit(), 0);
  OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui);
  OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui);
  EXPECT_EQ(Recorder().CallCount("TTF_Init"), 1);
  EXPECT_EQ(TTF_WasInit(), 1);
}

TEST_F(UiFontOpening, LeavesARunningSdlTtfAlone) {
  ASSERT_EQ(TTF_Init(), 0);
  Recorder().Reset();
  EXPECT_NE(OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui), nullptr);
  EXPECT_EQ(Recorder().CallCount("TTF_Init"), 0);
  ShutdownSdlUiCachedFonts();
  EXPECT_EQ(Recorder().CallCount("TTF_Quit"), 0);
}

TEST_F(UiFontOpening, TriesAFailedStartOfSdlTtfAgain) {
  Recorder().FailCall("TTF_Init", 1);
  Recorder().FailCall("TTF_Init", 2);
  EXPECT_EQ(OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui), nullptr);
  EXPECT_EQ(OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui), nullptr);
  EXPECT_THAT(Recorder().font_requests(), IsEmpty());
  EXPECT_EQ(TTF_WasInit(), 0);
  EXPECT_NE(OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui), nullptr);
  EXPECT_EQ(Recorder().CallCount("TTF_Init"), 3);
}

TEST_F(UiFontOpening, HandleClosesItsFont) {
  { const OwnedTtfFont font = OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui); }
  EXPECT_EQ(Recorder().CallCount("TTF_CloseFont"), 1);
  EXPECT_EQ(Recorder().alive().fonts, 0U);
}

TEST_F(UiFontOpening, FindsNothingInAnEmptyWorkingDirectory) {
  const testing::ScopedEmptyWorkingDirectory nowhere;
  Recorder().HideSystemFonts();
  for (const RequestCase& request : RequestCases()) {
    EXPECT_EQ(OpenSdlUiFontHandle(14, request.bold, request.kind), nullptr);
  }
}

// --- Cache ---------------------------------------------------------------------------------------

class UiFontCache : public DialogTest {};

TEST_F(UiFontCache, OpensEachRequestOnce) {
  for (int round = 0; round < 3; ++round) {
    TTF_Font* const first = GetCachedSdlUiFont(16, false, SdlUiFontKind::Ui);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(GetCachedSdlUiFont(16, false, SdlUiFontKind::Ui), first);
  }
  EXPECT_EQ(Recorder().CallCount("TTF_OpenFont"), 1);
}

TEST_F(UiFontCache, TellsSizeWeightAndKindApart) {
  std::vector<TTF_Font*> fonts;
  for (const int size : {15, 16}) {
    for (const bool bold : {false, true}) {
      for (const SdlUiFontKind kind : {SdlUiFontKind::Ui, SdlUiFontKind::Body}) {
        fonts.push_back(GetCachedSdlUiFont(size, bold, kind));
        EXPECT_EQ(Recorder().font_requests().back().size, size);
      }
    }
  }
  EXPECT_THAT(Recorder().font_requests(), SizeIs(8));
  EXPECT_EQ(Recorder().alive().fonts, 8U);
  std::size_t next = 0;
  for (const int size : {15, 16}) {
    for (const bool bold : {false, true}) {
      for (const SdlUiFontKind kind : {SdlUiFontKind::Ui, SdlUiFontKind::Body}) {
        EXPECT_EQ(GetCachedSdlUiFont(size, bold, kind), fonts[next++]);
      }
    }
  }
  EXPECT_THAT(Recorder().font_requests(), SizeIs(8));
}

TEST_F(UiFontCache, OpensWithTheStyleOfTheRequest) {
  GetCachedSdlUiFont(15, true, SdlUiFontKind::Body);
  GetCachedSdlUiFont(15, false, SdlUiFontKind::Body);
  EXPECT_THAT(
      Recorder().font_requests(),
      ElementsAre(FontRequest{"./data/ttf/IBMPlexSans-SemiBold.ttf", 15, true, TTF_STYLE_BOLD},
                  FontRequest{"./data/ttf/IBMPlexSans-Regular.ttf", 15, true, TTF_STYLE_NORMAL}));
}

TEST_F(UiFontCache, RemembersAFailureUntilItsShutdown) {
  Recorder().HideAllFonts();
  EXPECT_EQ(GetCachedSdlUiFont(15, false, SdlUiFontKind::Ui), nullptr);
  const auto requests = Recorder().font_requests().size();
  EXPECT_EQ(requests, 16U);
  Recorder().ClearFaults();
  EXPECT_EQ(GetCachedSdlUiFont(15, false, SdlUiFontKind::Ui), nullptr);
  EXPECT_THAT(Recorder().font_requests(), SizeIs(requests));
  EXPECT_NE(GetCachedSdlUiFont(16, false, SdlUiFontKind::Ui), nullptr);
  ShutdownSdlUiCachedFonts();
  EXPECT_NE(GetCachedSdlUiFont(15, false, SdlUiFontKind::Ui), nullptr);
}

TEST_F(UiFontCache, RemembersAFailedStartOfSdlTtf) {
  Recorder().FailCall("TTF_Init");
  EXPECT_EQ(GetCachedSdlUiFont(15, false, SdlUiFontKind::Ui), nullptr);
  EXPECT_NE(OpenSdlUiFontHandle(15, false, SdlUiFontKind::Ui), nullptr);
  EXPECT_EQ(GetCachedSdlUiFont(15, false, SdlUiFontKind::Ui), nullptr);
  ShutdownSdlUiCachedFonts();
  EXPECT_NE(GetCachedSdlUiFont(15, false, SdlUiFontKind::Ui), nullptr);
}

TEST_F(UiFontCache, SizeBelowOneIsNullWithoutTouchingSdlTtf) {
  EXPECT_EQ(GetCachedSdlUiFont(0, false, SdlUiFontKind::Ui), nullptr);
  EXPECT_EQ(GetCachedSdlUiFont(-5, false, SdlUiFontKind::Ui), nullptr);
  ExpectNoTtfCall();
}

TEST_F(UiFontCache, ShutdownClosesEveryFontOnceAndNoNull) {
  GetCachedSdlUiFont(15, false, SdlUiFontKind::Ui);
  GetCachedSdlUiFont(0, false, SdlUiFontKind::Ui);
  GetCachedSdlUiFont(16, true, SdlUiFontKind::Body);
  ShutdownSdlUiCachedFonts();
  EXPECT_EQ(Recorder().CallCount("TTF_CloseFont"), 2);
  EXPECT_EQ(Recorder().alive().fonts, 0U);
  ShutdownSdlUiCachedFonts();
  EXPECT_EQ(Recorder().CallCount("TTF_CloseFont"), 2);
}

TEST_F(UiFontCache, GrowsAgainAfterItsShutdown) {
  for (int round = 1; round <= 3; ++round) {
    EXPECT_NE(GetCachedSdlUiFont(16, false, SdlUiFontKind::Ui), nullptr);
    EXPECT_EQ(Recorder().CallCount("TTF_OpenFont"), round);
    ShutdownSdlUiCachedFonts();
  }
}

TEST_F(UiFontCache, SurvivesARestartOfSdlTtf) {
  GetCachedSdlUiFont(16, false, SdlUiFontKind::Ui);
  ShutdownSdlUiCachedFonts();
  TTF_Quit();
  EXPECT_NE(GetCachedSdlUiFont(16, false, SdlUiFontKind::Ui), nullptr);
}

// --- Drawing text --------------------------------------------------------------------------------

constexpr SDL_Rect kUntouched{-1, -2, -3, -4};
constexpr SDL_Color kColor{10, 20, 30, 40};

class UiText : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    bundle_ = CreateModalWindowBundle(nullptr, "Text", 0, 0, 320, 200, SDL_WINDOW_HIDDEN,
                                      ModalRendererMode::Software);
    font_ = OpenSdlUiFontHandle(14, false, SdlUiFontKind::Ui);
    ASSERT_NE(bundle_.renderer, nullptr);
    ASSERT_NE(font_, nullptr);
    Recorder().ForgetCalls();
  }
  void TearDown() override {
    font_.reset();
    bundle_ = {};
    DialogTest::TearDown();
  }

  void Draw(std::string_view text, SDL_Rect* rect) const {
    DrawSdlUiText(bundle_.renderer.get(), font_.get(), text, 30, 40, kColor, rect);
  }

  ModalWindowBundle bundle_;
  OwnedTtfFont font_;
};

TEST_F(UiText, IsDrawnWholeAtItsTopLeftCorner) {
  SDL_Rect rect = kUntouched;
  Draw("Drive A", &rect);
  int width = 0;
  int height = 0;
  ASSERT_EQ(TTF_SizeUTF8(font_.get(), "Drive A", &width, &height), 0);
  EXPECT_EQ(rect, (SDL_Rect{30, 40, width, height}));
  ASSERT_THAT(Recorder().unpresented().draws, SizeIs(1));
  const DrawCall& drawn = Recorder().unpresented().draws[0];
  EXPECT_EQ(drawn.kind, DrawKind::Text);
  EXPECT_EQ(drawn.text, "Drive A");
  EXPECT_EQ(drawn.rect, rect);
  EXPECT_EQ(drawn.color, kColor);
  EXPECT_EQ(drawn.source, std::nullopt);
  EXPECT_EQ(drawn.font.path, "./data/ttf/IBMPlexSans-SemiBold.ttf");
}

TEST_F(UiText, KeepsNothingBetweenCalls) {
  Draw("Same", nullptr);
  Draw("Same", nullptr);
  const std::vector<std::string> one{"TTF_RenderUTF8_Blended", "SDL_CreateTextureFromSurface",
                                     "SDL_RenderCopy", "SDL_DestroyTexture", "SDL_FreeSurface"};
  std::vector<std::string> two = one;
  two.insert(two.end(), one.begin(), one.end());
  EXPECT_EQ(Recorder().CallsAmong({"TTF_RenderUTF8_Blended", "SDL_CreateTextureFromSurface",
                                   "SDL_RenderCopy", "SDL_DestroyTexture", "SDL_FreeSurface"}),
            two);
}

TEST_F(UiText, DoesNothingWithoutRendererFontOrText) {
  SDL_Rect rect = kUntouched;
  DrawSdlUiText(nullptr, font_.get(), "text", 0, 0, kColor, &rect);
  DrawSdlUiText(bundle_.renderer.get(), nullptr, "text", 0, 0, kColor, &rect);
  DrawSdlUiText(bundle_.renderer.get(), font_.get(), "", 0, 0, kColor, &rect);
  DrawSdlUiText(bundle_.renderer.get(), font_.get(), std::string_view(), 0, 0, kColor, &rect);
  EXPECT_EQ(rect, kUntouched);
  EXPECT_THAT(Recorder().calls(), IsEmpty());
}

TEST_F(UiText, EndsWhereTheViewEnds) {
  const std::string_view text = "picker entries";
  Draw(text.substr(0, 6), nullptr);
  const std::array<char, 3> unterminated{'a', 'b', 'c'};
  Draw(std::string_view(unterminated.data(), unterminated.size()), nullptr);
  EXPECT_THAT(Recorder().unpresented().Texts(), ElementsAre("picker", "abc"));
}

TEST_F(UiText, NulByteEndsTheText) {
  using std::string_view_literals::operator""sv;
  SDL_Rect rect = kUntouched;
  Draw("\0hidden"sv, &rect);
  EXPECT_EQ(rect, kUntouched);
  Draw("seen\0hidden"sv, &rect);
  EXPECT_THAT(Recorder().unpresented().Texts(), ElementsAre("seen"));
}

TEST_F(UiText, FailedRenderingIsSkipped) {
  SDL_Rect rect = kUntouched;
  Recorder().FailCall("TTF_RenderUTF8_Blended");
  Draw("text", &rect);
  EXPECT_EQ(rect, kUntouched);
  EXPECT_EQ(Recorder().CallCount("SDL_CreateTextureFromSurface"), 0);
  EXPECT_EQ(Recorder().CallCount("SDL_FreeSurface"), 0);
}

TEST_F(UiText, FailedTextureFreesTheSurface) {
  SDL_Rect rect = kUntouched;
  Recorder().FailCall("SDL_CreateTextureFromSurface");
  Draw("text", &rect);
  EXPECT_EQ(rect, kUntouched);
  EXPECT_EQ(Recorder().CallCount("SDL_RenderCopy"), 0);
  EXPECT_EQ(Recorder().CallCount("SDL_DestroyTexture"), 0);
  EXPECT_EQ(Recorder().alive().surfaces, 0U);
}

TEST_F(UiText, FailedCopyStillReleasesAndTellsTheRectangle) {
  SDL_Rect rect = kUntouched;
  Recorder().FailCall("SDL_RenderCopy");
  Draw("text", &rect);
  EXPECT_EQ((SDL_Point{rect.x, rect.y}), (SDL_Point{30, 40}));
  EXPECT_EQ(Recorder().alive().surfaces, 0U);
  EXPECT_EQ(Recorder().alive().textures, 0U);
}

TEST_F(UiText, ColoursAreTheSharedOnes) {
  EXPECT_EQ(kColTextHi, (SDL_Color{232, 237, 244, 255}));
  EXPECT_EQ(kColTextMid, (SDL_Color{170, 178, 192, 255}));
  EXPECT_EQ(kColTextDim, (SDL_Color{100, 108, 122, 255}));
}

}  // namespace
}  // namespace quindle::frontend::gui
