// vexpa/opc/TypeText.h - relationship types, each kept once for all relationships that have it.
#ifndef VEXPA_OPC_TYPETEXT_H_
#define VEXPA_OPC_TYPETEXT_H_

#include <memory>
#include <string>
#include <vector>

namespace tarn::opc {

// A type as written, and in the form in which types are compared.
struct TypeText {
    explicit TypeText(const char16_t* text);  // null is the empty text

    std::u16string written;
    std::u16string folded;
};

// A package has thousands of relationships of a dozen types, and a type is a long text, dear to
// fold. Those met last are remembered, few enough to be looked through.
class TypeTexts {
public:
    // The type of this text, shared with those who asked for it before. Throws when memory is
    // exhausted.
    std::shared_ptr<const TypeText> Share(const char16_t* text);

private:
    std::vector<std::shared_ptr<const TypeText>> last_;  // the one asked for last stands first
};

}  // namespace tarn::opc

#endif  // VEXPA_OPC_TYPETEXT_H_
