// tests/support/Late.h - calls from the destructors of a thread or a process that is ending.
#ifndef VEXPA_TESTS_SUPPORT_LATE_H_
#define VEXPA_TESTS_SUPPORT_LATE_H_

#include <functional>
#include <thread>

namespace vexpa_test {

// Acts when it ends.
struct Late {
    std::function<void()> action;
    ~Late() {
        if (action) action();
    }
};

struct Worked {
    bool first;
    bool late;
};

// What `call` answers on a new thread, and once more when an object of that thread ends which was
// there before the first call.
inline Worked CallOnAnEndingThread(const std::function<bool()>& call) {
    Worked worked{};
    std::thread([&] {
        thread_local Late late;
        late.action = [&] { worked.late = call(); };
        worked.first = call();
    }).join();
    return worked;
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_LATE_H_
