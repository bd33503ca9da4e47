// tests/opc/SingleRelationship.h - a relationship that shares nothing with others.
#ifndef VEXPA_TESTS_OPC_SINGLERELATIONSHIP_H_
#define VEXPA_TESTS_OPC_SINGLERELATIONSHIP_H_

#include <memory>

#include "vexpa/opc/RelationshipImpl.h"

namespace vexpa_test {

// Each text may be null, which is the empty text; `source` is empty for the package.
inline tarn::opc::RelationshipImpl SingleRelationship(const char16_t* id, const char16_t* type,
                                                      const char16_t* source, const char16_t* target,
                                                      const char16_t* targetMode) {
    using namespace tarn::opc;
    return RelationshipImpl(id, std::make_shared<const TypeText>(type),
                            std::make_shared<const RelationshipSource>(source), target, targetMode);
}

}  // namespace vexpa_test

#endif  // VEXPA_TESTS_OPC_SINGLERELATIONSHIP_H_
