// bench/drivers/NamedParts.h - walks a package through an archive that only knows entries by name.
//
// What a careful user of a zip library and an XML parser writes: content types in two hash
// maps, targets resolved against the source part's folder, each part read once.
#ifndef VEXPA_BENCH_DRIVERS_NAMEDPARTS_H_
#define VEXPA_BENCH_DRIVERS_NAMEDPARTS_H_

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "bench/drivers/Driver.h"

namespace vexpa_bench {

struct Bytes {
    std::unique_ptr<char[]> data;
    std::size_t size = 0;

    std::string_view Text() const { return {data.get(), size}; }
};

// One start tag: its local name, and the value of an attribute or an empty text.
struct Element {
    std::string_view name;
    std::function<std::string_view(std::string_view)> attribute;
};
using ElementSink = std::function<void(const Element&)>;

// Expat's; a driver with a parser of its own brings another.
void ParseElements(std::string_view xml, const ElementSink& sink);

// The part name that a target means, without the leading slash.
std::string ResolvedTarget(std::string_view source, std::string_view target);
std::string RelationshipsOf(std::string_view part);

class ContentTypes {
public:
    template <class Parse>
    void Read(std::string_view xml, const Parse& parse) {
        parse(xml, [this](const Element& element) { Add(element); });
    }
    const std::string* Find(const std::string& part) const;

private:
    void Add(const Element& element);

    std::unordered_map<std::string, std::string> overrides_;
    std::unordered_map<std::string, std::string> defaults_;
};

// Archive: std::optional<Held> Read(const std::string& name), nothing for an absent entry, where
// Held has Text(). Parse: as ParseElements.
template <class Archive, class Parse>
void WalkByNames(Archive& archive, const Parse& parse, Tally& tally) {
    using Held = typename decltype(archive.Read(std::string()))::value_type;
    ContentTypes types;
    const auto typesEntry = archive.Read("[Content_Types].xml");
    if (!typesEntry) throw std::runtime_error("no content types");
    types.Read(typesEntry->Text(), parse);

    std::vector<Held> held;
    std::size_t typed = 0;
    std::unordered_set<std::string> seen;
    std::deque<std::string> open{std::string()};
    for (; !open.empty(); open.pop_front()) {
        const auto relationships = archive.Read(RelationshipsOf(open.front()));
        if (!relationships) continue;
        parse(relationships->Text(), [&](const Element& element) {
            if (element.name != "Relationship") return;
            tally.AddRelationship();
            if (element.attribute("TargetMode") == "External") return;
            std::string name = ResolvedTarget(open.front(), element.attribute("Target"));
            if (!seen.insert(name).second) return;
            auto part = archive.Read(name);
            if (!part) return;
            typed += types.Find(name) != nullptr;
            tally.AddPart(part->Text().data(), part->Text().size());
            held.push_back(std::move(*part));
            open.push_back(std::move(name));
        });
    }
    if (typed > held.size()) throw std::logic_error("more types than parts");
}

}  // namespace vexpa_bench

#endif  // VEXPA_BENCH_DRIVERS_NAMEDPARTS_H_
