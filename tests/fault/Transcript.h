// tests/fault/Transcript.h - what a caller saw of the library, a line for each thing.
#ifndef VEXPA_TESTS_FAULT_TRANSCRIPT_H_
#define VEXPA_TESTS_FAULT_TRANSCRIPT_H_

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "vexpa/opc/Package.h"
#include "vexpa/platform/Runtime.h"
#include "vexpa/xmlfx/XmlRoAttr.h"

namespace vexpa_test {

// Has its memory from the start, so that nothing it does is among what fails.
class Transcript {
public:
    Transcript();

    template <class... Pieces>
    void Say(const Pieces&... pieces) {
        (Append(pieces), ...);
        text_ += '\n';
    }

    void SayRelationship(const tarn::opc::Relationship* relationship);
    void SayRelationships(const tarn::opc::RelationshipMap& relationships);
    // Its name, content type and relationships; the bytes are read on request only.
    void SayPart(const tarn::opc::Part* part);
    void SayStream(tarn::opc::Part& part);
    void SayStorage(tarn::opc::Part& part);
    // What is left of a stream: how many bytes and their check sum.
    void SayRest(std::string_view what, IStream& stream);
    void SaySet(const tarn::xmlfx::XmlRoAttr* set);

    const std::string& Text() const { return text_; }

private:
    void Append(const char* text) { text_ += text; }
    void Append(std::string_view text) { text_ += text; }
    void Append(std::u16string_view text);
    void Append(const unsigned short* text);
    void Append(char c) { text_ += c; }
    template <class Number>
    requires std::integral<Number> || std::is_enum_v<Number>
    void Append(Number number) { AppendNumber(static_cast<std::uint64_t>(number)); }
    void AppendNumber(std::uint64_t number);

    std::string text_;
};

// The first line of `seen` that `whole` does not have; empty when there is none.
std::string LineNotIn(const std::string& seen, const std::string& whole);

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_FAULT_TRANSCRIPT_H_
