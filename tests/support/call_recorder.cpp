#include "support/call_recorder.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/recorder_state.h"

namespace quindle::testing {
namespace {

constexpr std::size_t kMaxLogged = 100'000;

// Constant-initialised, so that it is there before the first slot links itself in.
FunctionSlot* g_first_slot = nullptr;

template <typename Map>
std::size_t CountBeyondBaseline(const Map& alive) {
  const std::set<const void*>& baseline = State().baseline;
  return static_cast<std::size_t>(
      std::count_if(alive.begin(), alive.end(),
                    [&baseline](const auto& entry) { return baseline.count(entry.first) == 0; }));
}

template <typename Handle, typename Made>
Handle* Newest(const std::map<Handle*, Made>& alive) {
  const auto newest = std::max_element(
      alive.begin(), alive.end(),
      [](const auto& a, const auto& b) { return a.second.order < b.second.order; });
  return newest == alive.end() ? nullptr : newest->first;
}

template <typename Map>
void AddToBaseline(const Map& alive) {
  for (const auto& entry : alive) {
    State().baseline.insert(entry.first);
  }
}

FunctionSlot* SlotThatCanFail(std::string_view function) {
  FunctionSlot* slot = FindSlot(function);
  if (slot == nullptr || !slot->can_fail) {
    ADD_FAILURE() << "call recorder: " << function
                  << (slot == nullptr ? " is not wrapped" : " cannot fail");
    return nullptr;
  }
  return slot;
}

bool HasFaultFor(const FunctionSlot& slot) {
  auto& faults = State().faults;
  const auto [begin, end] = faults.equal_range(&slot);
  const auto hit =
      std::find_if(begin, end, [&slot](const auto& fault) { return fault.second == slot.count; });
  if (hit == end) {
    return false;
  }
  faults.erase(hit);
  return true;
}

bool IsQuestion(std::string_view function) {
  return function.starts_with("SDL_Get") || function.starts_with("SDL_GL_Get") ||
         function == "SDL_WasInit" || function == "SDL_ShowCursor(SDL_QUERY)";
}

bool IsAbsolutePath(const std::string& path) {
  return path.starts_with('/') || (path.size() > 1 && path[1] == ':');
}

}  // namespace

FunctionSlot::FunctionSlot(const char* function_name, bool may_fail)
    : name(function_name), can_fail(may_fail), next(g_first_slot) {
  g_first_slot = this;
}

FunctionSlot* FirstSlot() {
  return g_first_slot;
}

FunctionSlot* FindSlot(std::string_view name) {
  FunctionSlot* slot = FirstSlot();
  while (slot != nullptr && slot->name != name) {
    slot = slot->next;
  }
  return slot;
}

RecorderState& State() {
  static RecorderState* const state = new RecorderState;
  return *state;
}

thread_local int InsideTtf::depth_ = 0;

bool EnterCall(FunctionSlot& slot, const void* subject) {
  ++slot.count;
  RecorderState& state = State();
  const bool fails = slot.fail_always || HasFaultFor(slot);
  if (fails) {
    ++state.faults_hit;
    SDL_SetError("%s was made to fail", slot.name);
  }
  state.calls.push_back(Call{slot.name, subject, fails});
  if (state.calls.size() > kMaxLogged) {
    state.calls.pop_front();
  }
  return fails;
}

CallRecorder& Recorder() {
  static CallRecorder recorder;
  return recorder;
}

std::vector<std::string> WrappedFunctions(bool failing_only) {
  std::vector<std::string> names;
  for (const FunctionSlot* slot = FirstSlot(); slot != nullptr; slot = slot->next) {
    if (slot->can_fail || !failing_only) {
      names.emplace_back(slot->name);
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

void CallRecorder::Reset() {
  RecorderState& state = State();
  RecorderState fresh;
  fresh.alive_windows = std::move(state.alive_windows);
  fresh.alive_renderers = std::move(state.alive_renderers);
  fresh.alive_textures = std::move(state.alive_textures);
  fresh.alive_surfaces = std::move(state.alive_surfaces);
  fresh.alive_fonts = std::move(state.alive_fonts);
  fresh.texture_owners = std::move(state.texture_owners);
  fresh.fake_textures = std::move(state.fake_textures);
  fresh.alive_objects = std::move(state.alive_objects);
  fresh.creations = state.creations;
  for (auto& [font, font_state] : fresh.alive_fonts) {
    font_state.request.reset();
  }
  state = std::move(fresh);
  for (FunctionSlot* slot = FirstSlot(); slot != nullptr; slot = slot->next) {
    slot->count = 0;
    slot->fail_always = false;
  }
  MarkBaseline();
}

void CallRecorder::MarkBaseline() {
  RecorderState& state = State();
  state.baseline.clear();
  AddToBaseline(state.alive_windows);
  AddToBaseline(state.alive_renderers);
  AddToBaseline(state.alive_textures);
  AddToBaseline(state.alive_surfaces);
  AddToBaseline(state.alive_fonts);
}

const std::deque<Call>& CallRecorder::calls() const {
  return State().calls;
}

long CallRecorder::CallCount(std::string_view function) const {
  const FunctionSlot* slot = FindSlot(function);
  if (slot == nullptr) {
    ADD_FAILURE() << "call recorder: " << function << " is not wrapped";
    return -1;
  }
  return slot->count;
}

std::vector<std::string> CallRecorder::CallsAmong(std::initializer_list<std::string_view> functions,
                                                  const void* subject) const {
  for (const std::string_view function : functions) {
    EXPECT_NE(FindSlot(function), nullptr) << function << " is not wrapped";
  }
  std::vector<std::string> names;
  for (const Call& call : State().calls) {
    const bool wanted =
        std::find(functions.begin(), functions.end(), call.function) != functions.end();
    if (wanted && (subject == nullptr || call.subject == subject)) {
      names.emplace_back(call.function);
    }
  }
  return names;
}

std::vector<std::string> CallRecorder::CallsButQuestions() const {
  std::vector<std::string> names;
  for (const Call& call : State().calls) {
    if (!IsQuestion(call.function)) {
      names.emplace_back(call.function);
    }
  }
  return names;
}

void CallRecorder::ForgetCalls() {
  State().calls.clear();
}

const std::vector<WindowRecord>& CallRecorder::windows() const {
  return State().windows;
}

const std::vector<RendererRecord>& CallRecorder::renderers() const {
  return State().renderers;
}

const std::vector<FontRequest>& CallRecorder::font_requests() const {
  return State().font_requests;
}

const std::vector<std::string>& CallRecorder::urls() const {
  return State().urls;
}

const std::vector<SimpleMessageBox>& CallRecorder::simple_message_boxes() const {
  return State().simple_message_boxes;
}

const std::deque<Uint32>& CallRecorder::delays() const {
  return State().delays;
}

long CallRecorder::presents() const {
  return State().presents;
}

const Frame& CallRecorder::last_frame() const {
  static const Frame kNone;
  return State().frames.empty() ? kNone : State().frames.back();
}

const std::deque<Frame>& CallRecorder::frames() const {
  return State().frames;
}

void CallRecorder::KeepFrames(std::size_t count) {
  State().kept_frames = std::max<std::size_t>(count, 1);
}

const Frame& CallRecorder::unpresented() const {
  return State().unpresented;
}

void CallRecorder::ForgetDraws() {
  State().frames.clear();
  State().unpresented = Frame{};
}

SDL_Window* CallRecorder::newest_window() const {
  return Newest(State().alive_windows);
}

Uint32 CallRecorder::newest_window_id() const {
  const auto found = State().alive_windows.find(newest_window());
  return found == State().alive_windows.end() ? 0 : found->second.id;
}

SDL_Renderer* CallRecorder::newest_renderer() const {
  return Newest(State().alive_renderers);
}

SDL_Window* CallRecorder::WindowOf(SDL_Renderer* renderer) const {
  const auto found = State().alive_renderers.find(renderer);
  return found == State().alive_renderers.end() ? nullptr : found->second.window;
}

AliveCounts CallRecorder::alive() const {
  const RecorderState& state = State();
  AliveCounts counts;
  counts.windows = CountBeyondBaseline(state.alive_windows);
  counts.renderers = CountBeyondBaseline(state.alive_renderers);
  counts.textures = CountBeyondBaseline(state.alive_textures);
  counts.surfaces = CountBeyondBaseline(state.alive_surfaces);
  counts.fonts = CountBeyondBaseline(state.alive_fonts);
  counts.shared_objects = state.alive_objects.size();
  counts.text_input = state.text_input;
  return counts;
}

void CallRecorder::ExpectNothingAlive() const {
  EXPECT_EQ(alive(), AliveCounts{}) << "something was left behind";
  for (const std::string& violation : State().violations) {
    ADD_FAILURE() << violation;
  }
}

const std::vector<std::string>& CallRecorder::violations() const {
  return State().violations;
}

void CallRecorder::FailCall(std::string_view function, long nth) {
  if (const FunctionSlot* slot = SlotThatCanFail(function)) {
    State().faults.emplace(slot, slot->count + nth);
  }
}

void CallRecorder::FailAlways(std::string_view function) {
  if (FunctionSlot* slot = SlotThatCanFail(function)) {
    slot->fail_always = true;
  }
}

void CallRecorder::ClearFaults() {
  State().faults.clear();
  State().hidden_fonts = nullptr;
  State().font_redirects.clear();
  for (FunctionSlot* slot = FirstSlot(); slot != nullptr; slot = slot->next) {
    slot->fail_always = false;
  }
}

long CallRecorder::faults_hit() const {
  return State().faults_hit;
}

void CallRecorder::HideFonts(std::function<bool(const std::string& path)> hidden) {
  State().hidden_fonts = std::move(hidden);
}

void CallRecorder::HideAllFonts() {
  HideFonts([](const std::string&) { return true; });
}

void CallRecorder::HideSystemFonts() {
  HideFonts(IsAbsolutePath);
}

void CallRecorder::RedirectFont(std::string path, std::string file) {
  State().font_redirects.insert_or_assign(std::move(path), std::move(file));
}

void CallRecorder::SetPointer(SDL_Window* focus, int x, int y, Uint32 buttons) {
  RecorderState& state = State();
  state.real_pointer = false;
  state.pointer_focus = focus;
  state.pointer = {x, y};
  state.pointer_buttons = buttons;
}

void CallRecorder::ClearPointer() {
  SetPointer(nullptr, 0, 0, 0);
}

void CallRecorder::UseRealPointer() {
  State().real_pointer = true;
}

SDL_GLContext CallRecorder::StartOpenGl(SDL_Window* window) {
  return State().opengl.Start(window);
}

void CallRecorder::SetDrawMode(DrawMode mode) {
  State().draw_mode = mode;
}

void CallRecorder::SetMeasureMode(MeasureMode mode) {
  State().measure_mode = mode;
}

void CallRecorder::SetVideoDriver(std::string name) {
  State().video_driver = std::move(name);
}

void CallRecorder::SleepInDelay(bool sleep) {
  State().sleep_in_delay = sleep;
}

void CallRecorder::OnDelay(std::function<void(Uint32 milliseconds)> action) {
  State().on_delay = std::move(action);
}

void CallRecorder::OnAddEvents(std::function<void(int count)> action) {
  State().on_add_events = std::move(action);
}

void PrintTo(const AliveCounts& counts, std::ostream* out) {
  *out << counts.windows << " windows, " << counts.renderers << " renderers, " << counts.textures
       << " textures, " << counts.surfaces << " surfaces, " << counts.fonts << " fonts, "
       << counts.shared_objects << " shared objects, text input "
       << (counts.text_input ? "on" : "off");
}

void PrintTo(const FontRequest& request, std::ostream* out) {
  *out << request.path << ' ' << request.size << " pt style " << request.style
       << (request.opened ? " opened" : " not opened");
}

void PrintTo(const SimpleMessageBox& box, std::ostream* out) {
  *out << "flags " << box.flags << " \"" << box.title << "\" \"" << box.text << '"';
}

}  // namespace quindle::testing
