// bench/xmlfx/PlainVersion.h - the vocabulary written with standard containers, to measure against.
#ifndef VEXPA_BENCH_XMLFX_PLAINVERSION_H_
#define VEXPA_BENCH_XMLFX_PLAINVERSION_H_

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "vexpa/xmlfx/Attributes.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace vexpa_bench {

struct PlainHash {
    std::size_t operator()(const std::u16string& text) const noexcept;
};

using PlainNames = std::unordered_map<std::u16string, std::uint32_t, PlainHash>;
using PlainNSMap = std::unordered_map<std::u16string, PlainNames, PlainHash>;
using PlainTokens = std::unordered_map<std::uint32_t, tarn::xmlfx::NameInfo>;
using PlainNSMapInverse = std::unordered_map<std::uint32_t, PlainTokens>;

struct PlainRegistry {
    PlainNSMap forward;
    PlainNSMapInverse inverse;

    void Fill();  // entry by entry, from the registry of the library
    void Clear();
};

class PlainLeaf {
public:
    explicit PlainLeaf(std::u16string value) : value_(std::move(value)) {}
    virtual ~PlainLeaf() = default;

private:
    std::u16string value_;
    std::uint32_t count_ = 1;
};

struct PlainSet {
    std::multimap<std::uint32_t, PlainLeaf*> byToken;
    std::vector<std::pair<std::uint32_t, std::unique_ptr<PlainLeaf>>> attributes;
};

std::unique_ptr<PlainSet> PlainTransform(PlainNSMap& namespaces,
                                         const tarn::xmlfx::Attributes& attributes,
                                         const char16_t* defaultUri);

}  // namespace vexpa_bench

#endif  // VEXPA_BENCH_XMLFX_PLAINVERSION_H_
