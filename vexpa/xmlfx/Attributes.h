// vexpa/xmlfx/Attributes.h - the attribute list of one element, as a SAX2 parser hands it over.
#ifndef VEXPA_XMLFX_ATTRIBUTES_H_
#define VEXPA_XMLFX_ATTRIBUTES_H_

namespace tarn::xmlfx {

// Implemented by the caller, or by the caller's parser as it is: an attribute list with
// these slots is passed straight through.
//
// Texts are NUL-terminated UTF-16 and stay the parser's; the library copies what it keeps.
// An operation may throw, and the exception passes to whoever called the library.
//
// The order of the virtual members is the binary interface: nothing is inserted,
// moved or removed. tests/xmlfx/SlotOrderTest.cpp fails when it changes.
class Attributes {
public:
    virtual ~Attributes() = default;

    virtual unsigned int getLength() const = 0;
    // Null or empty for an attribute without a prefix.
    virtual const unsigned short* getURI(unsigned int index) const = 0;
    virtual const unsigned short* getLocalName(unsigned int index) const = 0;
    virtual const unsigned short* getQName(unsigned int index) const = 0;  // not used
    virtual const unsigned short* getType(unsigned int index) const = 0;   // not used
    virtual const unsigned short* getValue(unsigned int index) const = 0;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_ATTRIBUTES_H_
