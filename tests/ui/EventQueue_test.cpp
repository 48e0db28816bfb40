// The queue: what is merged, in which order bound handlers run, and posts from threads.
#include "tests/ui/UiTest.h"

namespace {

const bool startState = KeepStartState(PutBackInterface);

InterfaceEvent Event(int32_t number, int64_t window = 0, int64_t object = kNone, int64_t type = 0,
                     uint32_t flags = 0) {
    return {number, flags, object, window, type, nullptr, nullptr};
}

int released = 0;

InterfaceEvent WithData() {
    return {3, 0, 5, 0, 0, &released, [](void*) { ++released; }};
}

std::string log;

// The last number that merges is 65535; posted events never merge.
TEST(EventQueue, MergesOnlyWithTheNewestEqualEvent) {
    for (const InterfaceEvent& event :
         {Event(6, 3), Event(6, 3), Event(6, 4), Event(6, 3), Event(3, 3, 7, 1), Event(3, 3, 7, 2),
          Event(3, 3, 8, 2), Event(3, 3, 8, 2, kEventUnmerged), Event(65535), Event(65535),
          Event(65536), Event(65536)})
        RaiseInterfaceEvent(event);
    for (int i = 0; i < 2; ++i) PostInterfaceEvent(6, 3, kNone, 0);
    EXPECT_EQ(Heard(),
              "6 3 -1 0|6 4 -1 0|6 3 -1 0|3 3 7 1|3 3 7 2|3 3 8 2|3 3 8 2|65535 0 -1 0|"
              "65536 0 -1 0|65536 0 -1 0|6 3 -1 0|6 3 -1 0|");
}

TEST(EventQueue, BoundHandlersRunInKeyOrderWithTheirEventCurrent) {
    log.clear();
    BindHandler(3, 1, 2, 768, [] { log += "a"; });
    BindHandler(3, 1, kAny, kAny, [] { log += "c"; });
    BindHandler(3, kAny, kAny, kAny, [] { log += "d"; });
    BindHandler(3, kAny, 2, 768, [] {
        log += "e" + std::to_string(EventObject()) + std::to_string(EventType());
        RaiseInterfaceEvent(Event(6, 9));  // from within: its own handlers, then ours again
        log += "/" + std::to_string(EventNumber());
    });
    BindHandler(6, 9, kAny, kAny, [] { log += "(" + std::to_string(EventWindow()) + ")"; });
    PostInterfaceEvent(65541, 0, kNone, 0);
    ASSERT_EQ(WaitForEvent(0), 65541);
    BindHandler(3, 1, 2, kAny, [] { log += "x"; });
    BindHandler(3, 1, 2, kAny, [] { log += "b"; });  // in place of the other
    RaiseInterfaceEvent(Event(3, 1, 2, 768));
    BindHandler(3, 1, 2, kAny, nullptr);
    log += " " + std::to_string(EventNumber()) + " ";  // current again
    // Of another window, of another type, and merged, but the handlers run again.
    for (const auto& event : {Event(3, 5, 2, 768), Event(3, 1, 2, 0), Event(3, 1, 2, 0)})
        RaiseInterfaceEvent(event);
    EXPECT_EQ(log, "abcde2768(9)/3 65541 de2768(9)/3cdcd");
}

// A handler that drops the very event it runs for, as closing its window does, must not
// pull the data away from under itself; a merge into that event must not either.
TEST(EventQueue, AnEventDroppedByItsOwnHandlerLivesUntilTheHandlerEnds) {
    log.clear();
    released = 0;
    BindHandler(3, kAny, 5, 0, [] {
        if (log.empty()) {
            log += "outer ";
            RaiseInterfaceEvent(WithData());
        }
        DropQueuedEvents(3, 5);
        log += std::to_string(EventObject()) + ":" + std::to_string(released) + " ";
    });
    RaiseInterfaceEvent(WithData());
    EXPECT_EQ(log + std::to_string(released), "outer 5:0 5:1 2");
}

// Posts from threads end an endless wait, and arrive in the order of each.
TEST(EventQueue, ThousandsOfPostsFromThreadsAllArriveInTheOrderOfEach) {
    constexpr int kEach = 2000;
    std::vector<std::thread> posters;
    for (int64_t id = 0; id < 3; ++id) {
        posters.emplace_back([id] {
            for (int i = 0; i < kEach; ++i) PostInterfaceEvent(65538, 0, i, id);
        });
    }
    int64_t next[3] = {};
    for (int taken = 0; taken < 3 * kEach; ++taken) {
        ASSERT_EQ(WaitForEvent(-1), 65538);
        ASSERT_EQ(EventObject(), next[EventType()]++);
    }
    for (std::thread& poster : posters) poster.join();
}

}  // namespace
