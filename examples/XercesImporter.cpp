#include "examples/XercesImporter.h"

#include <new>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/InputSource.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/util/BinInputStream.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLString.hpp>
#include <xercesc/util/XMLUni.hpp>

#include "examples/importer/PartStream.h"
#include "examples/importer/TreeBuilder.h"
#include "vexpa/base/Utf16.h"
#include "vexpa/base/Utf8.h"

using tarn::ToUnits;
using tarn::ToUtf8;

namespace importer {

namespace {

// Reads the part as the parser asks for it.
class PartInput final : public xercesc::BinInputStream {
public:
    explicit PartInput(IStream& stream) : stream_(stream) {}
    XMLFilePos curPos() const override { return position_; }
    XMLSize_t readBytes(XMLByte* bytes, XMLSize_t most) override {
        const std::size_t read = ReadBytes(stream_, bytes, most);
        position_ += read;
        return read;
    }
    const XMLCh* getContentType() const override { return nullptr; }

private:
    IStream& stream_;
    XMLFilePos position_ = 0;
};

class PartSource final : public xercesc::InputSource {
public:
    explicit PartSource(IStream& stream) : stream_(stream) {}
    xercesc::BinInputStream* makeStream() const override { return new PartInput(stream_); }

private:
    IStream& stream_;
};

// The slots are in the same order in both, but Xerces counts attributes in 64 bits.
class XercesAttributes final : public tarn::xmlfx::Attributes {
public:
    explicit XercesAttributes(const xercesc::Attributes& list) : list_(list) {}
    unsigned int getLength() const override { return static_cast<unsigned int>(list_.getLength()); }
    const unsigned short* getURI(unsigned int i) const override { return ToUnits(list_.getURI(i)); }
    const unsigned short* getLocalName(unsigned int i) const override {
        return ToUnits(list_.getLocalName(i));
    }
    const unsigned short* getQName(unsigned int i) const override { return ToUnits(list_.getQName(i)); }
    const unsigned short* getType(unsigned int i) const override { return ToUnits(list_.getType(i)); }
    const unsigned short* getValue(unsigned int i) const override { return ToUnits(list_.getValue(i)); }

private:
    const xercesc::Attributes& list_;
};

// What it throws passes through the parser, which ends the parse.
class Handler final : public xercesc::DefaultHandler {
public:
    explicit Handler(TreeBuilder& builder) : builder_(builder) {}

    void startPrefixMapping(const XMLCh*, const XMLCh* uri) override {
        builder_.DeclareNamespace(xercesc::XMLString::stringLen(uri));
    }
    void startElement(const XMLCh* uri, const XMLCh* localName, const XMLCh*,
                      const xercesc::Attributes& attributes) override {
        builder_.StartElement(ToUnits(uri), ToUnits(localName), XercesAttributes(attributes));
    }
    void characters(const XMLCh* text, XMLSize_t length) override {
        builder_.Characters({text, length});
    }
    void endElement(const XMLCh*, const XMLCh*, const XMLCh*) override { builder_.EndElement(); }
    // Namespace errors arrive as mere errors, which the default handler ignores.
    void error(const xercesc::SAXParseException& exception) override { throw exception; }
    void fatalError(const xercesc::SAXParseException& exception) override { throw exception; }

private:
    TreeBuilder& builder_;
};

// Refuses a document type before anything in it is read. A lexical handler would not do: it
// hears nothing of one without declarations.
class Reader final : public xercesc::SAX2XMLReaderImpl {
public:
    void doctypeDecl(const xercesc::DTDElementDecl&, const XMLCh*, const XMLCh*, bool, bool) override {
        throw ImportError(kNoDocumentType);
    }
};

// No validation, no file, no network. What a document type could ask for is refused with it;
// the rest holds should that ever be changed.
void Harden(xercesc::SAX2XMLReader& reader, xercesc::SecurityManager& security) {
    using xercesc::XMLUni;
    reader.setFeature(XMLUni::fgSAX2CoreNameSpaces, true);
    reader.setFeature(XMLUni::fgSAX2CoreNameSpacePrefixes, false);
    reader.setFeature(XMLUni::fgSAX2CoreValidation, false);
    reader.setFeature(XMLUni::fgXercesSchema, false);
    reader.setFeature(XMLUni::fgXercesLoadExternalDTD, false);
    reader.setFeature(XMLUni::fgXercesDisableDefaultEntityResolution, true);
    security.setEntityExpansionLimit(100);
    reader.setProperty(XMLUni::fgXercesSecurityManager, &security);
}

}  // namespace

XercesImporter::XercesImporter(const Limits& limits) : limits_(limits) {
    xercesc::XMLPlatformUtils::Initialize();
}

XercesImporter::~XercesImporter() {
    xercesc::XMLPlatformUtils::Terminate();
}

Tree XercesImporter::Import(IStream& stream) try {
    TreeBuilder builder(limits_);
    Handler handler(builder);
    xercesc::SecurityManager security;
    Reader reader;
    Harden(reader, security);
    reader.setContentHandler(&handler);
    reader.setLexicalHandler(&handler);  // without one the reader hears of no document type
    reader.setErrorHandler(&handler);
    reader.parse(PartSource(stream));
    return builder.TakeTree();
} catch (const xercesc::SAXParseException& error) {
    throw ImportError(ToUtf8(ToUnits(error.getMessage())), error.getLineNumber());
} catch (const xercesc::SAXException& error) {
    throw ImportError(ToUtf8(ToUnits(error.getMessage())));
} catch (const xercesc::OutOfMemoryException&) {
    throw std::bad_alloc();
} catch (const xercesc::XMLException& error) {
    throw ImportError(ToUtf8(ToUnits(error.getMessage())), error.getSrcLine());
}

}  // namespace importer
