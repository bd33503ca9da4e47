// The namespace maps: filling, looking up, and what a hostile document makes of them.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/xmlfx/PlainVersion.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/xmlfx/XmlMapper.h"

namespace {

using tarn::xmlfx::NSMap;
using tarn::xmlfx::XmlMapper;
using vexpa_bench::PlainRegistry;

struct Name {
    std::u16string uri;
    std::u16string name;
};

std::vector<Name> AllNames() {
    std::vector<Name> all;
    for (const auto& [uri, names] : XmlMapper::GetNSMap()) {
        for (const auto& [name, token] : names)
            all.push_back({std::u16string(uri), std::u16string(name)});
    }
    return all;
}

// Texts of one hash.
std::vector<std::u16string> Colliding(std::int64_t count) {
    std::vector<std::u16string> all;
    for (std::int64_t i = 0; i < count; ++i) {
        std::u16string uri = u"http://collisions.example/namespace/of/a/hostile/document/000000";
        std::int64_t rest = i;
        for (std::size_t n = 1; rest != 0; ++n, rest /= 10) {
            uri[uri.size() - n] = static_cast<char16_t>(u'0' + rest % 10);
        }
        all.push_back(std::move(uri));
    }
    return all;
}

void FillAndClear(benchmark::State& state) {
    for (auto _ : state) {
        _vexpa_Initialize();
        _vexpa_Terminate();
    }
}
BENCHMARK(FillAndClear)->Unit(benchmark::kMicrosecond);

void FillAndClearPlain(benchmark::State& state) {
    _vexpa_Initialize();
    PlainRegistry plain;
    for (auto _ : state) {
        plain.Fill();
        plain.Clear();
    }
    _vexpa_Terminate();
}
BENCHMARK(FillAndClearPlain)->Unit(benchmark::kMicrosecond);

template <class Map>
void LookUp(benchmark::State& state, const Map& map, const std::vector<Name>& names) {
    std::size_t next = 0;
    for (auto _ : state) {
        const Name& name = names[next];
        next = next + 1 == names.size() ? 0 : next + 1;
        const auto inner = map.find(name.uri.c_str());
        if (inner == map.end()) continue;
        benchmark::DoNotOptimize(inner->second.find(name.name.c_str()) != inner->second.end());
    }
}

enum class Kind { kHit, kUnknownName, kUnknownUri };

std::vector<Name> NamesFor(Kind kind) {
    std::vector<Name> names = AllNames();
    for (Name& name : names) {
        if (kind == Kind::kUnknownName) name.name += u"Unknown";
        if (kind == Kind::kUnknownUri) name.uri = u"http://unknown.example/" + name.uri;
    }
    return names;
}

void LookUpInRegistry(benchmark::State& state, Kind kind) {
    _vexpa_Initialize();
    const NSMap& map = XmlMapper::GetNSMap();
    LookUp(state, map, NamesFor(kind));
    _vexpa_Terminate();
}
BENCHMARK_CAPTURE(LookUpInRegistry, hit, Kind::kHit);
BENCHMARK_CAPTURE(LookUpInRegistry, unknown_name, Kind::kUnknownName);
BENCHMARK_CAPTURE(LookUpInRegistry, unknown_uri, Kind::kUnknownUri);

void LookUpInPlain(benchmark::State& state, Kind kind) {
    _vexpa_Initialize();
    PlainRegistry plain;
    plain.Fill();
    LookUp(state, plain.forward, NamesFor(kind));
    _vexpa_Terminate();
}
BENCHMARK_CAPTURE(LookUpInPlain, hit, Kind::kHit);
BENCHMARK_CAPTURE(LookUpInPlain, unknown_name, Kind::kUnknownName);
BENCHMARK_CAPTURE(LookUpInPlain, unknown_uri, Kind::kUnknownUri);

void FindByToken(benchmark::State& state) {
    _vexpa_Initialize();
    const auto& map = XmlMapper::GetNSMapInverse();
    std::vector<std::uint32_t> tokens;
    for (const auto& [base, names] : map) {
        for (const auto& [token, info] : names) tokens.push_back(token);
    }
    std::size_t next = 0;
    for (auto _ : state) {
        const std::uint32_t token = tokens[next];
        next = next + 1 == tokens.size() ? 0 : next + 1;
        benchmark::DoNotOptimize(map.find(token & 0xFFFF0000)->second.find(token)->second.name);
    }
    _vexpa_Terminate();
}
BENCHMARK(FindByToken);

template <class Map>
void Collisions(benchmark::State& state, Map& map) {
    const std::vector<std::u16string> uris = Colliding(state.range(0));
    for (const std::u16string& uri : uris) map[uri];
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(map.find(uris[next]) != map.end());
        next = (next + 7919) % uris.size();
    }
    map.clear();
}

void CollisionsInRegistry(benchmark::State& state) {
    Collisions(state, XmlMapper::GetNSMap());
}
BENCHMARK(CollisionsInRegistry)->Arg(100)->Arg(20'000)->Arg(200'000);

void CollisionsInPlain(benchmark::State& state) {
    vexpa_bench::PlainNSMap map;
    Collisions(state, map);
}
BENCHMARK(CollisionsInPlain)->Arg(100)->Arg(20'000);

}  // namespace
