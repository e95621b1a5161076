// The queue as a dialog's loop reads it, and what of it the host finds again.

#include "frontend/gui/sdl_modal_events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/testing/push_event.h"
#include "support/dialog_test.h"
#include "support/every_dialog.h"

namespace quindle::testing {
namespace {

using frontend::gui::ModalEventQueue;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using ::testing::ValuesIn;

constexpr std::size_t kQueueSize = 65535;  // SDL's.
// While events are put back, one place is taken.
constexpr std::size_t kMostKept = kQueueSize - 1;

SDL_Event Numbered(int number, Uint32 type = SDL_USEREVENT) {
  SDL_Event event{};
  event.type = type;
  event.user.code = number;
  return event;
}

void PushNumbered(int number) {
  SDL_Event event = Numbered(number);
  ASSERT_EQ(SDL_PushEvent(&event), 1) << SDL_GetError();
}

// Unlike a pushed event, of no type turned away and seen by no watch.
void Enqueue(std::vector<SDL_Event> events) {
  const int count = static_cast<int>(events.size());
  ASSERT_EQ(SDL_PeepEvents(events.data(), count, SDL_ADDEVENT, 0, 0), count);
}

// Without what SDL says of windows that come and go.
std::vector<SDL_Event> LeftForTheHost() {
  std::vector<SDL_Event> events = EventsLeftBehind();
  std::erase_if(events, [](const SDL_Event& event) { return event.type == SDL_WINDOWEVENT; });
  return events;
}

std::vector<Uint32> QueuedTypes() {
  std::vector<Uint32> types;
  for (const SDL_Event& event : LeftForTheHost()) {
    types.push_back(event.type);
  }
  return types;
}

// The numbers of the queued user events; -1 for an event of another type.
std::vector<int> QueuedNumbers() {
  std::vector<int> numbers;
  for (const SDL_Event& event : LeftForTheHost()) {
    numbers.push_back(event.type == SDL_USEREVENT ? event.user.code : -1);
  }
  return numbers;
}

// Events with an address or a text in them, which some SDLs read when they are queued.
bool PointsToMore(Uint32 type) {
  switch (type) {
    case SDL_SYSWMEVENT:
    case SDL_TEXTEDITING:
    case SDL_TEXTINPUT:
    case SDL_DROPFILE:
    case SDL_DROPTEXT:
      return true;
    default:
      return false;
  }
}

std::vector<int> NumbersUpTo(std::size_t count) {
  std::vector<int> numbers(count);
  for (std::size_t i = 0; i < count; ++i) {
    numbers[i] = static_cast<int>(i);
  }
  return numbers;
}

std::vector<SDL_Event> NumberedUpTo(std::size_t count) {
  std::vector<SDL_Event> events;
  for (const int number : NumbersUpTo(count)) {
    events.push_back(Numbered(number));
  }
  return events;
}

const std::vector<Uint32> kKeptTypes{SDL_APP_TERMINATING,         SDL_APP_LOWMEMORY,
                                     SDL_APP_WILLENTERBACKGROUND, SDL_APP_DIDENTERBACKGROUND,
                                     SDL_APP_WILLENTERFOREGROUND, SDL_APP_DIDENTERFOREGROUND,
                                     SDL_LOCALECHANGED,           SDL_DISPLAYEVENT,
                                     SDL_KEYMAPCHANGED,           SDL_JOYDEVICEADDED,
                                     SDL_JOYDEVICEREMOVED,        SDL_CONTROLLERDEVICEADDED,
                                     SDL_CONTROLLERDEVICEREMOVED, SDL_CONTROLLERDEVICEREMAPPED,
                                     SDL_CLIPBOARDUPDATE,         SDL_AUDIODEVICEADDED,
                                     SDL_AUDIODEVICEREMOVED,      SDL_RENDER_TARGETS_RESET,
                                     SDL_RENDER_DEVICE_RESET};

class ModalEvents : public DialogTest {
 protected:
  void SetUp() override {
    DialogTest::SetUp();
    queue_.emplace(MakeParent());
  }

  void TearDown() override {
    queue_.reset();
    FlushEvents();
    DialogTest::TearDown();
  }

  // The types that a dialog gets to see, up to a quit.
  std::vector<Uint32> PollToQuit() {
    std::vector<Uint32> types;
    SDL_Event event;
    while (queue_->Poll(&event)) {
      types.push_back(event.type);
      if (event.type == SDL_QUIT) {
        break;
      }
    }
    return types;
  }

  std::optional<ModalEventQueue> queue_;
};

TEST_F(ModalEvents, TheHostsOwnComeBackAndNoOthers) {
  std::vector<SDL_Event> events;
  std::vector<Uint32> kept;
  std::vector<Uint32> consumed;
  for (Uint32 type = SDL_QUIT; type <= SDL_LASTEVENT - 1; ++type) {
    const bool is_host_event =
        type >= SDL_USEREVENT ||
        std::find(kKeptTypes.begin(), kKeptTypes.end(), type) != kKeptTypes.end();
    if (PointsToMore(type) || type == SDL_POLLSENTINEL) {
      continue;
    }
    events.push_back(Numbered(0, type));
    (is_host_event ? kept : consumed).push_back(type);
  }
  Enqueue(events);
  std::vector<Uint32> seen;
  SDL_Event event;
  while (queue_->Poll(&event)) {
    seen.push_back(event.type);
  }
  EXPECT_THAT(QueuedTypes(), IsEmpty());
  queue_.reset();
  EXPECT_EQ(QueuedTypes(), kept);

  // What no dialog uses and what is another window's does not reach one.
  const std::vector<Uint32> unused{SDL_WINDOWEVENT, SDL_TEXTEDITING_EXT, SDL_DROPBEGIN,
                                   SDL_DROPCOMPLETE};
  std::erase_if(consumed, [&unused](Uint32 type) {
    return std::find(unused.begin(), unused.end(), type) != unused.end();
  });
  EXPECT_EQ(seen, consumed);
}

TEST_F(ModalEvents, OfTheHostComeBackUnchanged) {
  SDL_Event event = Numbered(7);
  event.user.timestamp = 12345;
  event.user.windowID = 99;
  event.user.data1 = this;
  event.user.data2 = &event;
  Enqueue({event});
  EXPECT_THAT(PollToQuit(), IsEmpty());
  queue_.reset();
  const std::vector<SDL_Event> queued = QueuedEvents();
  ASSERT_EQ(queued.size(), 1U);
  EXPECT_EQ(queued[0].user.timestamp, 12345U);
  EXPECT_EQ(queued[0].user.windowID, 99U);
  EXPECT_EQ(queued[0].user.code, 7);
  EXPECT_EQ(queued[0].user.data1, this);
  EXPECT_EQ(queued[0].user.data2, &event);
}

TEST_F(ModalEvents, ComeBackInOrderInFrontOfWhatWasLeftUnread) {
  PushNumbered(1);
  KeyDown(SDLK_a);
  PushNumbered(2);
  Quit();
  PushNumbered(3);
  KeyDown(SDLK_b);
  PushNumbered(4);
  EXPECT_THAT(PollToQuit(), ElementsAre(SDL_KEYDOWN, SDL_QUIT));
  queue_.reset();
  EXPECT_THAT(QueuedNumbers(), ElementsAre(1, 2, 3, -1, 4));
}

TEST_F(ModalEvents, StayInTheQueueWhenNoneWasKept) {
  Quit();
  PushNumbered(1);
  EXPECT_THAT(PollToQuit(), ElementsAre(SDL_QUIT));
  Recorder().ForgetCalls();
  queue_.reset();
  EXPECT_THAT(Recorder().CallsAmong({"SDL_PeepEvents", "SDL_FilterEvents"}), IsEmpty());
  EXPECT_THAT(QueuedNumbers(), ElementsAre(1));
}

// More than one portion is taken at a time.
TEST_F(ModalEvents, ComeBackInFrontOfThousands) {
  std::vector<SDL_Event> events = NumberedUpTo(5000);
  SDL_Event quit{};
  quit.type = SDL_QUIT;
  events.insert(events.begin() + 100, quit);
  Enqueue(events);
  EXPECT_THAT(PollToQuit(), ElementsAre(SDL_QUIT));
  queue_.reset();
  EXPECT_EQ(QueuedNumbers(), NumbersUpTo(5000));
}

TEST_F(ModalEvents, ComeBackInFrontOfWhatIsAddedMeanwhile) {
  PushNumbered(0);
  PushNumbered(1);
  Quit();
  PushNumbered(2);
  EXPECT_THAT(PollToQuit(), ElementsAre(SDL_QUIT));
  Recorder().OnAddEvents([](int) {
    Recorder().OnAddEvents({});
    PushNumbered(3);
    PushNumbered(4);
  });
  queue_.reset();
  EXPECT_THAT(QueuedNumbers(), ElementsAre(0, 1, 2, 3, 4));
}

// An SDL that queues the address of a text would lose it.
TEST_F(ModalEvents, LeaveUnreadTextWhereItIs) {
  PushNumbered(1);
  Quit();
  KeyDown(SDLK_a);
  TextInput("a");
  PushNumbered(2);
  TextInput("b");
  EXPECT_THAT(PollToQuit(), ElementsAre(SDL_QUIT));
  queue_.reset();
  EXPECT_THAT(QueuedTypes(),
              ElementsAre(SDL_TEXTINPUT, SDL_TEXTINPUT, SDL_USEREVENT, SDL_KEYDOWN, SDL_USEREVENT));
  EXPECT_THAT(QueuedNumbers(), ElementsAre(-1, -1, 1, -1, 2));
  EXPECT_STREQ(LeftForTheHost()[0].text.text, "a");
  EXPECT_STREQ(LeftForTheHost()[1].text.text, "b");
}

TEST_F(ModalEvents, LeaveUnreadTextOfEveryKindWhereItIs) {
  if (frontend::gui::testing::IsTextQueuedByAddress()) {
    GTEST_SKIP() << "this SDL takes such events from no program";
  }
  PushNumbered(1);
  EXPECT_THAT(PollToQuit(), IsEmpty());
  const std::vector<Uint32> types{SDL_TEXTINPUT, SDL_TEXTEDITING, SDL_TEXTEDITING_EXT, SDL_DROPFILE,
                                  SDL_DROPTEXT};
  for (const Uint32 type : types) {
    SDL_Event event{};
    event.type = type;
    Enqueue({event});
  }
  queue_.reset();
  std::vector<Uint32> expected = types;
  expected.push_back(SDL_USEREVENT);
  EXPECT_EQ(QueuedTypes(), expected);
}

// SDL's own mark counts as none of the queue's, although it fills a place of it.
TEST_F(ModalEvents, ComeBackInOrderAroundAMarkOfSdls) {
  PushNumbered(0);
  EXPECT_THAT(PollToQuit(), IsEmpty());
  std::vector<SDL_Event> events = NumberedUpTo(kQueueSize);
  events.front() = Numbered(0, SDL_POLLSENTINEL);
  Enqueue(events);
  queue_.reset();
  EXPECT_EQ(QueuedNumbers(), NumbersUpTo(kQueueSize - 2));
}

TEST_F(ModalEvents, ComeBackThoughNoOtherCanBeAdded) {
  PushNumbered(1);
  EXPECT_THAT(PollToQuit(), IsEmpty());
  Recorder().FailCall("SDL_PeepEvents");
  queue_.reset();
  EXPECT_THAT(QueuedNumbers(), ElementsAre(1));
}

TEST_F(ModalEvents, TheOldestOfAFullQueueComeBack) {
  Enqueue(NumberedUpTo(100));
  EXPECT_THAT(PollToQuit(), IsEmpty());
  std::vector<SDL_Event> more;
  for (const SDL_Event& event : NumberedUpTo(kQueueSize)) {
    more.push_back(Numbered(event.user.code + 100));
  }
  Enqueue(more);
  queue_.reset();
  EXPECT_EQ(QueuedNumbers(), NumbersUpTo(kMostKept));
}

TEST_F(ModalEvents, NoMoreAreKeptThanAQueueHolds) {
  Enqueue(NumberedUpTo(kQueueSize));
  EXPECT_THAT(PollToQuit(), IsEmpty());
  PushNumbered(-2);
  EXPECT_THAT(PollToQuit(), IsEmpty());
  int added = 0;
  Recorder().OnAddEvents([&added](int count) { added = std::max(added, count); });
  queue_.reset();
  EXPECT_EQ(added, static_cast<int>(kMostKept));
  EXPECT_EQ(QueuedNumbers(), NumbersUpTo(kMostKept));
}

TEST_F(ModalEvents, SurviveAQueueThatRefusesThem) {
  PushNumbered(1);
  EXPECT_THAT(PollToQuit(), IsEmpty());
  Recorder().FailAlways("SDL_PeepEvents");
  queue_.reset();
  Recorder().ClearFaults();
  EXPECT_THAT(QueuedNumbers(), IsEmpty());
}

// --- A drag that another dialog's loop has seen the end of
// -----------------------------------------

TEST_F(ModalEvents, MissNoReleaseWithoutAnotherDialog) {
  EXPECT_FALSE(queue_->MissedLeftRelease());
  Recorder().SetPointer(MakeParent(), 1, 1, SDL_BUTTON_LMASK);
  EXPECT_FALSE(queue_->MissedLeftRelease());
}

TEST_F(ModalEvents, MissAReleaseThatAnotherDialogMayHaveRead) {
  { const ModalEventQueue nested(MakeParent()); }
  EXPECT_TRUE(queue_->MissedLeftRelease());
  EXPECT_FALSE(queue_->MissedLeftRelease()) << "told twice";
}

TEST_F(ModalEvents, MissNoReleaseWhileTheButtonIsDown) {
  Recorder().SetPointer(MakeParent(), 1, 1, SDL_BUTTON_LMASK);
  { const ModalEventQueue nested(MakeParent()); }
  EXPECT_FALSE(queue_->MissedLeftRelease());
  Recorder().SetPointer(MakeParent(), 1, 1, SDL_BUTTON_RMASK);
  EXPECT_FALSE(queue_->MissedLeftRelease()) << "not asked anew";
  { const ModalEventQueue nested(MakeParent()); }
  EXPECT_TRUE(queue_->MissedLeftRelease());
}

TEST_F(ModalEvents, MissNothingFromBeforeTheyWereRead) {
  { const ModalEventQueue earlier(MakeParent()); }
  queue_.reset();
  queue_.emplace(MakeParent());
  EXPECT_FALSE(queue_->MissedLeftRelease());
}

// --- Every dialog --------------------------------------------------------------------------------

struct HostError : std::runtime_error {
  HostError() : std::runtime_error("from the heartbeat") {}
};

// Counts what the host's watch gets to see.
class EventWatch {
 public:
  EventWatch() { SDL_AddEventWatch(&See, this); }
  ~EventWatch() { SDL_DelEventWatch(&See, this); }
  EventWatch(const EventWatch&) = delete;
  EventWatch& operator=(const EventWatch&) = delete;
  EventWatch(EventWatch&&) = delete;
  EventWatch& operator=(EventWatch&&) = delete;

  long Count(Uint32 type) const { return std::count(seen_.begin(), seen_.end(), type); }

 private:
  static int SDLCALL See(void* self, SDL_Event* event) {
    static_cast<EventWatch*>(self)->seen_.push_back(event->type);
    return 0;
  }

  std::vector<Uint32> seen_;
};

class EachDialogsEvents : public DialogTest, public ::testing::WithParamInterface<NamedDialog> {};

TEST_P(EachDialogsEvents, LeaveTheHostItsOwnInOrder) {
  std::vector<SDL_Event> events;
  std::transform(kKeptTypes.begin(), kKeptTypes.end(), std::back_inserter(events),
                 [](Uint32 type) { return Numbered(0, type); });
  DialogScript script;
  script.Step([&] { Enqueue(events); })
      .Wait()
      .Step([] {
        PushNumbered(1);
        KeyUp(SDLK_F1);
        PushNumbered(2);
      })
      .Wait(2)
      .Step([] {
        Quit();
        PushNumbered(3);
      });
  GetParam().show(MakeParent());
  std::vector<Uint32> expected = kKeptTypes;
  expected.insert(expected.end(), 3, SDL_USEREVENT);
  EXPECT_EQ(QueuedTypes(), expected);
  std::vector<int> numbers = QueuedNumbers();
  std::erase(numbers, -1);
  EXPECT_THAT(numbers, ElementsAre(1, 2, 3));
}

TEST_P(EachDialogsEvents, LeaveTheHostItsOwnWhenTheHeartbeatThrows) {
  DialogScript script;
  script.Step([] { PushNumbered(1); }).Wait().Step([] {
    PushNumbered(2);
    throw HostError();
  });
  EXPECT_THROW(GetParam().show(MakeParent()), HostError);
  EXPECT_THAT(QueuedNumbers(), ElementsAre(1, 2));
}

TEST_P(EachDialogsEvents, LeaveTheHostItsOwnFromANestedDialog) {
  DialogScript script;
  script.Step([] { PushNumbered(1); })
      .Wait()
      .Step([] {
        PushNumbered(2);
        GetParam().show(nullptr);
      })
      .Wait()
      .Step([] { PushNumbered(3); })
      .Wait()
      .Step([] { Quit(); })
      .Wait(2)
      .Step([] { PushNumbered(4); })
      .Wait()
      .Step([] { Quit(); });
  GetParam().show(MakeParent());
  EXPECT_THAT(QueuedNumbers(), ElementsAre(1, 2, 3, 4));
}

TEST_P(EachDialogsEvents, ReachAWatchOnce) {
  const EventWatch watch;
  DialogScript script;
  script.Step([] { PushNumbered(1); }).Wait().Step([] { Quit(); });
  GetParam().show(MakeParent());
  EXPECT_EQ(watch.Count(SDL_USEREVENT), 1);
  EXPECT_EQ(watch.Count(SDL_QUIT), 1);
  EXPECT_THAT(QueuedNumbers(), ElementsAre(1)) << "the quit is consumed";
}

SDL_Event OfText(Uint32 type, char* text) {
  SDL_Event event{};
  event.type = type;
  if (type == SDL_TEXTEDITING_EXT) {
    event.editExt.text = text;
  } else {
    event.drop.file = text;
  }
  return event;
}

TEST_P(EachDialogsEvents, FreeTheTextsThatNobodyTakes) {
  if (frontend::gui::testing::IsTextQueuedByAddress()) {
    GTEST_SKIP() << "this SDL takes such events from no program";
  }
  std::vector<SDL_Event> events;
  std::vector<const void*> texts;
  for (const Uint32 type : {SDL_DROPFILE, SDL_DROPTEXT, SDL_TEXTEDITING_EXT}) {
    char* const text = SDL_strdup("/tmp/disk.img");
    texts.push_back(text);
    events.push_back(OfText(type, text));
  }
  events.push_back(OfText(SDL_DROPBEGIN, nullptr));
  events.push_back(OfText(SDL_DROPCOMPLETE, nullptr));
  DialogScript script;
  script.Step([&] { Enqueue(events); }).Wait().Step([] { Quit(); });
  GetParam().show(MakeParent());
  std::vector<const void*> freed;
  for (const Call& call : Recorder().calls()) {
    if (call.function == "SDL_free" && call.subject != nullptr) {
      freed.push_back(call.subject);
    }
  }
  EXPECT_EQ(freed, texts);
  EXPECT_THAT(QueuedTypes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Dialogs, EachDialogsEvents, ValuesIn(EveryDialog()), NameOfDialogTest);

class DialogEvents : public DialogTest {};

TEST_F(DialogEvents, LeaveTheHostItsOwnFromADialogsOwnDialog) {
  DialogScript script;
  script.Step([] { PushNumbered(1); }).Step([] {
    MouseUp(700, 200);
    PushNumbered(2);
  });
  script.Wait(2).Step([] { PushNumbered(3); }).Wait().Step([] { KeyDown(SDLK_ESCAPE); });
  script.Wait(2).Step([] { PushNumbered(4); }).Wait().Step([] { KeyDown(SDLK_ESCAPE); });
  frontend::gui::ShowSimpleHddCreateDialog(MakeParent(), ".", 32);
  EXPECT_EQ(Recorder().windows().size(), 3U);
  EXPECT_THAT(QueuedNumbers(), ElementsAre(1, 2, 3, 4));
}

// A host's thread that reports its jobs as user events.
class Reporter {
 public:
  Reporter() : thread_([this] { Run(); }) {}
  ~Reporter() {
    if (thread_.joinable()) {
      Stop();
    }
  }
  Reporter(const Reporter&) = delete;
  Reporter& operator=(const Reporter&) = delete;
  Reporter(Reporter&&) = delete;
  Reporter& operator=(Reporter&&) = delete;

  // How many it has reported.
  std::size_t Stop() {
    stop_ = true;
    thread_.join();
    return reported_;
  }

 private:
  void Run() {
    while (!stop_ && reported_ < kQueueSize / 2) {
      SDL_Event event = Numbered(static_cast<int>(reported_));
      if (SDL_PushEvent(&event) == 1) {
        ++reported_;
      }
      std::this_thread::sleep_for(std::chrono::microseconds(20));
    }
  }

  std::atomic<bool> stop_{false};
  std::size_t reported_ = 0;
  std::thread thread_;
};

TEST_F(DialogEvents, OfAnotherThreadKeepTheirOrder) {
  Recorder().SetDrawMode(DrawMode::Counted);
  const std::vector<NamedDialog>& dialogs = EveryDialog();
  Reporter reporter;
  for (std::size_t i = 0; i < 20 * dialogs.size(); ++i) {
    int frame = 0;
    frontend::gui::SetModalDialogHeartbeat([&frame] {
      if (++frame == 3) {
        Quit();
      }
    });
    dialogs[i % dialogs.size()].show(nullptr);
  }
  const std::size_t reported = reporter.Stop();
  std::vector<int> numbers = QueuedNumbers();
  std::erase(numbers, -1);  // A dialog without a parent leaves a quit of SDL's.
  EXPECT_EQ(numbers, NumbersUpTo(reported));
}

}  // namespace
}  // namespace quindle::testing
