// tests/runtime/com/FailingNew.h - lets the n-th operator new of a program fail.
#ifndef VEXPA_TESTS_RUNTIME_COM_FAILINGNEW_H_
#define VEXPA_TESTS_RUNTIME_COM_FAILINGNEW_H_

namespace vexpa_test {

// While it lives, operator new on this thread works `calls` times and then fails once.
class FailingNew {
public:
    explicit FailingNew(int calls);
    ~FailingNew();
    FailingNew(const FailingNew&) = delete;
    FailingNew& operator=(const FailingNew&) = delete;

    bool HasFailed() const;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_RUNTIME_COM_FAILINGNEW_H_
