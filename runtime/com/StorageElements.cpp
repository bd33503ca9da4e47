#include "runtime/com/StorageElements.h"

#include <gsf/gsf-infile-impl.h>
#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input.h>

#include <QChar>
#include <QString>
#include <algorithm>
#include <cstring>

#include "runtime/com/GsfSilence.h"

namespace vexpa_runtime {

namespace {

constexpr std::int64_t kUnixEpoch = 11'644'473'600;  // seconds after 1601-01-01
constexpr std::int64_t kTicksPerSecond = 10'000'000;

FILETIME ToFileTime(GDateTime* time) {
    if (time == nullptr) return {};
    const std::int64_t ticks = (g_date_time_to_unix(time) + kUnixEpoch) * kTicksPerSecond +
                               std::int64_t{10} * g_date_time_get_microsecond(time);
    const auto value = static_cast<std::uint64_t>(ticks);
    return {static_cast<std::uint32_t>(value), static_cast<std::uint32_t>(value >> 32)};
}

std::u16string UpperCase(std::u16string_view name) {
    std::u16string upper(name);
    for (char16_t& unit : upper) unit = QChar(unit).toUpper().unicode();
    return upper;
}

std::u16string ToUtf16(const char* utf8) {
    return QString::fromUtf8(utf8).toStdU16String();
}

// libgsf runs over a list to find a name by its index, so an opened element is asked itself.
std::u16string NameOf(GsfInput* element, GsfInfile* storage, int index) {
    return ToUtf16(element != nullptr ? gsf_input_name(element)
                                      : gsf_infile_name_by_index(storage, index));
}

// libgsf gives every element, stream or storage, the same class; only a storage counts children.
bool IsStorage(GsfInput* element) {
    return GSF_IS_INFILE(element) && gsf_infile_num_children(GSF_INFILE(element)) >= 0;
}

}  // namespace

// Through the class: the plain call prints the error to the default log domain, which is
// the host's.
GsfPtr<GsfInput> OpenElement(GsfInfile* storage, int index) {
    const GsfSilence silence;
    const auto* type = G_TYPE_INSTANCE_GET_CLASS(storage, GSF_INFILE_TYPE, GsfInfileClass);
    return GsfPtr<GsfInput>(type->child_by_index(storage, index, nullptr));
}

STATSTG DescribeElement(GsfInput* element) {
    STATSTG stat{};
    stat.mtime = ToFileTime(gsf_input_get_modtime(element));
    if (!IsStorage(element)) {
        stat.type = STGTY_STREAM;
        stat.cbSize = static_cast<std::uint64_t>(gsf_input_size(element));
        return stat;
    }
    stat.type = STGTY_STORAGE;
    guint8 clsid[sizeof(GUID)];
    if (gsf_infile_msole_get_class_id(GSF_INFILE_MSOLE(element), clsid)) {
        std::memcpy(&stat.clsid, clsid, sizeof clsid);
    }
    return stat;
}

HRESULT CopyStat(const STATSTG& stat, std::u16string_view name, std::uint32_t flags,
                 STATSTG* out) noexcept {
    char16_t* copy = nullptr;
    if (flags != STATFLAG_NONAME && !name.empty()) {
        copy = static_cast<char16_t*>(_XCoTaskMemAlloc((name.size() + 1) * sizeof(char16_t)));
        if (copy == nullptr) return E_OUTOFMEMORY;
        *std::copy(name.begin(), name.end(), copy) = u'\0';
    }
    *out = stat;
    out->pwcsName = copy;
    return S_OK;
}

StorageElements::StorageElements(GsfInfile* storage) {
    const int count = gsf_infile_num_children(storage);
    for (int index = 0; index < count; ++index) {
        const GsfPtr<GsfInput> input = OpenElement(storage, index);
        StorageElement element{NameOf(input.get(), storage, index), {}, index};
        if (!byName_.emplace(UpperCase(element.name), elements_.size()).second) continue;
        // A damaged stream keeps its name; opening it fails.
        element.stat.type = STGTY_STREAM;
        if (input) element.stat = DescribeElement(input.get());
        elements_.push_back(std::move(element));
    }
}

const StorageElement* StorageElements::Find(std::u16string_view name, STGTY type) const {
    const auto found = byName_.find(UpperCase(name));
    if (found == byName_.end()) return nullptr;
    const StorageElement& element = elements_[found->second];
    return element.stat.type == type ? &element : nullptr;
}

}  // namespace vexpa_runtime
