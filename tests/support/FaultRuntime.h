// tests/support/FaultRuntime.h - the platform, with every call counted and one of them failing.
#ifndef VEXPA_TESTS_SUPPORT_FAULTRUNTIME_H_
#define VEXPA_TESTS_SUPPORT_FAULTRUNTIME_H_

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

struct UzpCB;

namespace vexpa_test {

// While one lives, the platform calls of the code under test come through here on their
// way to the real runtime (the linker wraps them, see CMakeLists.txt). One at a time.
class FaultRuntime {
public:
    FaultRuntime();
    ~FaultRuntime();  // frees what the code under test lost
    FaultRuntime(const FaultRuntime&) = delete;
    FaultRuntime& operator=(const FaultRuntime&) = delete;

    // The n-th call from now on, counted from 1 over all calls that can fail, fails.
    void FailCall(std::size_t n);
    // The n-th call of this name fails, counted from 1.
    void FailCall(const std::string& name, std::size_t n = 1);

    // The n-th parse from now on gives no document and this result.
    void AnswerParse(std::size_t n, std::int32_t result);
    // As that, but the document comes all the same.
    void AnswerParseWithDocument(std::size_t n, std::int32_t result);

    // From now on a path that is split has this directory and nothing else.
    void AnswerSplitPath(const std::u16string& directory) { splitDirectory_ = directory; }

    // The calls made so far: the name, and in brackets the entry of an extraction.
    const std::vector<std::string>& Calls() const { return calls_; }
    std::size_t Count(const std::string& call) const;
    void ForgetCalls() { calls_.clear(); }

    // The name of the call that was failed, empty when none was.
    const std::string& FailedCall() const { return failedCall_; }

    // Extraction buffers that were handed out and not freed.
    std::size_t LostBuffers() const { return buffers_.size(); }
    // The length of the callback record that the last extraction was told.
    unsigned long CallbacksLength() const { return callbacksLength_; }
    // What the last extraction was answered when it had a message to show.
    int MessageAnswer() const { return messageAnswer_; }

    // For the wrapped calls.
    bool Fails(const std::string& name, const std::string& detail = {});
    void Note(const std::string& name);
    void OnBuffer(void* bytes);
    void OnFree(void* memory);
    const std::int32_t* ParseAnswer();  // null: parse
    bool ParseGivesDocument() const { return parseGivesDocument_; }
    void OnCallbacks(const UzpCB& callbacks);
    const std::optional<std::u16string>& SplitDirectory() const { return splitDirectory_; }
    static FaultRuntime* Active();

private:
    std::vector<std::string> calls_;
    std::map<std::string, std::size_t> counts_;
    std::set<void*> buffers_;
    std::size_t fallible_ = 0;
    std::size_t failAt_ = 0;
    std::string failName_;
    std::size_t failNameAt_ = 0;
    std::string failedCall_;
    std::size_t parses_ = 0;
    std::size_t answerParseAt_ = 0;
    std::int32_t parseResult_ = 0;
    bool parseGivesDocument_ = false;
    unsigned long callbacksLength_ = 0;
    int messageAnswer_ = -1;
    std::optional<std::u16string> splitDirectory_;
};

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_SUPPORT_FAULTRUNTIME_H_
