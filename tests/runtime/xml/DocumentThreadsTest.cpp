// A document may end in another thread than it was made in, and a thread may be unable to note what
// it keeps.
#include <gtest/gtest.h>
#include <pthread.h>

#include <cerrno>
#include <string>
#include <thread>
#include <vector>

#include "tests/runtime/xml/Dom.h"

namespace {

constexpr int kNever = -1;  // what is left, too, when the note that fails has been counted
thread_local int notesUntilFailure = kNever;

// Lets so many notes of this thread succeed, and then one fail.
class FailingNote {
public:
    explicit FailingNote(int before) { notesUntilFailure = before; }
    ~FailingNote() { notesUntilFailure = kNever; }
    FailingNote(const FailingNote&) = delete;
    FailingNote& operator=(const FailingNote&) = delete;
    static bool HasFailed() { return notesUntilFailure == kNever; }
};

}  // namespace

extern "C" {
int __real_pthread_setspecific(pthread_key_t key, const void* value);
int __wrap_pthread_setspecific(pthread_key_t key, const void* value);
int __wrap_pthread_setspecific(pthread_key_t key, const void* value) {
    if (notesUntilFailure != kNever && notesUntilFailure-- == 0) return ENOMEM;
    return __real_pthread_setspecific(key, value);
}
}

namespace vexpa_test {
namespace {

std::vector<std::u16string> ValuesOf(IDomDocument& document) {
    return Values(document, u"a", u"x");
}

TEST(DocumentOfAThread, StaysWhenTheThreadEnds) {
    ComPtr<IDomDocument> document;
    std::thread([&] { document = Parsed("<r><a x='still there'/></r>"); }).join();
    Parsed("<r><a x='another'/></r>");
    EXPECT_EQ(ValuesOf(*document.Get()), std::vector<std::u16string>{u"still there"});
}

TEST(DocumentOfAThread, MayEndInOneThatHasMadeNone) {
    ComPtr<IDomDocument> document = Parsed("<r><a x='1'/></r>");
    std::thread([&] {
        document.Reset();
        const ComPtr<IDomDocument> next = Parsed("<r><a x='2'/></r>");
        EXPECT_EQ(ValuesOf(*next.Get()), std::vector<std::u16string>{u"2"});
    }).join();
}

TEST(DocumentOfAThread, MayEndInOneThatCannotNoteWhatItKeeps) {
    ComPtr<IDomDocument> document = Parsed("<r><a x='1'/></r>");
    std::thread([&] {
        const FailingNote note(0);
        document.Reset();
        EXPECT_TRUE(FailingNote::HasFailed());
    }).join();
    const ComPtr<IDomDocument> next = Parsed("<r><a x='2'/></r>");
    EXPECT_EQ(ValuesOf(*next.Get()), std::vector<std::u16string>{u"2"});
}

// The thread notes its parser first.
TEST(DocumentOfAThread, IsMadeThoughTheThreadCannotNoteWhatItKeeps) {
    std::thread([] {
        const FailingNote note(1);
        const ComPtr<IDomDocument> document = Parsed("<r><a x='1'/></r>");
        EXPECT_TRUE(FailingNote::HasFailed());
        EXPECT_EQ(ValuesOf(*document.Get()), std::vector<std::u16string>{u"1"});
    }).join();
}

}  // namespace
}  // namespace vexpa_test
