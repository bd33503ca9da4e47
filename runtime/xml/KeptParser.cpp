#include "runtime/xml/KeptParser.h"

#include <new>
#include <utility>

#include "runtime/RandomKey.h"
#include "runtime/ThreadsOwn.h"

namespace vexpa_runtime {

namespace {

struct Kept {
    ParserPtr parser;
};

}  // namespace

ParserPtr TakeParser() {
    ParserPtr parser = std::exchange(ThreadsOwn<Kept>().parser, nullptr);
    if (parser == nullptr) parser.reset(XML_ParserCreate(nullptr));
    if (parser == nullptr) throw std::bad_alloc();
    // Without one, Expat asks the system for each stream.
    XML_SetHashSalt(parser.get(), static_cast<unsigned long>(ProcessKey().k1 | 1));
    return parser;
}

void KeepParser(ParserPtr parser) noexcept {
    if (XML_ParserReset(parser.get(), nullptr) != XML_TRUE) return;
    ThreadsOwn<Kept>().parser = std::move(parser);  // made when it was taken, so it does not throw
}

}  // namespace vexpa_runtime
