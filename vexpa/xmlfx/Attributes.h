// vexpa/xmlfx/Attributes.h - the attribute list of one element, as a SAX2 parser hands it over.
#ifndef VEXPA_XMLFX_ATTRIBUTES_H_
#define VEXPA_XMLFX_ATTRIBUTES_H_

namespace tarn::xmlfx {

// Implemented by the caller, or by the caller's parser as it is: an attribute list with
// these slots is passed straight through.
//
// Lifetime  Texts are NUL-terminated UTF-16 and stay the parser's, until the next call at
//           least; the library copies what it keeps.
// Errors    An operation may throw, and the exception passes to whoever called the library.
// Threads   Used by the thread that passes it, and only while that call lasts.
//
// The order of the virtual members is the binary interface: nothing is inserted,
// moved or removed. tests/xmlfx/SlotOrderTest.cpp fails when it changes.
class Attributes {
public:
    virtual ~Attributes() = default;

    // How many attributes there are.
    virtual unsigned int getLength() const = 0;
    // [borrowed] The namespace; null or empty for an attribute without a prefix.
    virtual const unsigned short* getURI(unsigned int index) const = 0;
    // [borrowed] The name without its prefix.
    virtual const unsigned short* getLocalName(unsigned int index) const = 0;
    // [borrowed] Not used.
    virtual const unsigned short* getQName(unsigned int index) const = 0;
    virtual const unsigned short* getType(unsigned int index) const = 0;
    // [borrowed] The value; null is the empty text.
    virtual const unsigned short* getValue(unsigned int index) const = 0;
};

}  // namespace tarn::xmlfx

#endif  // VEXPA_XMLFX_ATTRIBUTES_H_
