#include "vexpa/opc/UriScanner.h"

#include <array>
#include <cstddef>

#include "vexpa/opc/UriEscape.h"

namespace tarn::opc {

namespace {

// Characters in groups; the grammar's sets are unions of them. An escape %XX belongs to
// every set.
enum CharacterGroup : std::uint8_t {
    kPlain = 1,  // RFC 3986 unreserved and sub-delims
    kColon = 2,
    kAt = 4,
    kSlash = 8,
    kQuestion = 16,
    kBracket = 32,
    kUnwise = 64,
    kScheme = 128,
};
using CharacterSet = std::uint8_t;

constexpr CharacterSet kHostSet = kPlain;
constexpr CharacterSet kUserInfoSet = kPlain | kColon;
constexpr CharacterSet kIpLiteralSet = kPlain | kColon;
constexpr CharacterSet kRegistryNameSet = kPlain | kColon | kAt;
constexpr CharacterSet kPathSet = kPlain | kColon | kAt | kSlash;
constexpr CharacterSet kRelativeFirstSet = kPlain | kAt;
constexpr CharacterSet kOpaqueFirstSet = kPlain | kColon | kAt | kQuestion;
constexpr CharacterSet kAnySet = kPlain | kColon | kAt | kSlash | kQuestion | kBracket;

constexpr bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

consteval std::array<CharacterSet, 256> MakeGroups() {
    std::array<CharacterSet, 256> groups{};
    const auto add = [&groups](std::string_view characters, CharacterSet group) {
        for (const char c : characters) groups[static_cast<unsigned char>(c)] |= group;
    };
    constexpr std::string_view kAlphanumeric =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
    add(kAlphanumeric, kPlain | kScheme);
    add("-._~!$&'()*+,;=", kPlain);
    add("+-.", kScheme);
    add(":", kColon);
    add("@", kAt);
    add("/", kSlash);
    add("?", kQuestion);
    add("[]", kBracket);
    add("\\^{|}`", kUnwise);
    return groups;
}
constexpr std::array<CharacterSet, 256> kGroups = MakeGroups();

constexpr bool IsIn(CharacterSet set, char c) {
    return (kGroups[static_cast<unsigned char>(c)] & set) != 0;
}

// The size of the character or escape of `set` that stands at `at`, or 0 when there is none.
std::size_t UnitSize(std::string_view text, std::size_t at, CharacterSet set) {
    if (at == text.size()) return 0;
    if (IsIn(set, text[at])) return 1;
    return IsUriEscape(text, at) ? kUriEscapeSize : 0;
}

// Where the run of characters and escapes of `set` ends.
std::size_t RunEnd(std::string_view text, std::size_t at, CharacterSet set) {
    while (const std::size_t size = UnitSize(text, at, set)) at += size;
    return at;
}

class UriScanner {
public:
    UriScanner(std::string_view text, bool relaxed)
        : text_(text), relaxed_(relaxed ? kBracket | kUnwise : 0) {}

    UriStatus Scan() {
        if (ScanAbsolute() == UriStatus::Parsed) return UriStatus::Parsed;
        slices_ = {};
        at_ = 0;
        return ScanRelative();
    }
    const UriSlices& slices() const { return slices_; }

private:
    UriStatus ScanAbsolute() {
        if (!ScanScheme()) return UriStatus::Malformed;
        if (StartsWith("//")) {
            const UriStatus status = ScanAuthorityAndPath();
            if (status != UriStatus::Parsed) return status;
        } else if (Next() == '/') {
            slices_.path = Take(kPathSet);
        } else {
            if (!IsAtOneOf(kOpaqueFirstSet)) return UriStatus::Malformed;
            slices_.opaque = Take(kAnySet);
        }
        return ScanQueryAndFragment();
    }

    UriStatus ScanRelative() {
        if (StartsWith("//")) {
            const UriStatus status = ScanAuthorityAndPath();
            if (status != UriStatus::Parsed) return status;
        } else {
            const char first = Next();
            if (first != '/' && first != '?' && first != '#' && !IsAtOneOf(kRelativeFirstSet)) {
                return UriStatus::Malformed;
            }
            slices_.path = Take(kPathSet);
        }
        return ScanQueryAndFragment();
    }

    // Moves past "scheme:"; false when the text does not begin with one.
    bool ScanScheme() {
        if (!IsLetter(Next())) return false;
        while (IsIn(kScheme, Next())) ++at_;
        if (Next() != ':') return false;
        slices_.scheme = text_.substr(0, at_);
        ++at_;
        return true;
    }

    UriStatus ScanAuthorityAndPath() {
        at_ += 2;
        const std::size_t start = at_;
        ScanServer();
        if (!IsAtEnd() && Next() != '/' && Next() != '?') {
            // What was read as a server was none. A '#' gets here too: before a fragment an
            // authority is always a registry name.
            at_ = start;
            slices_.host = slices_.userInfo = {};
            slices_.port = 0;
            slices_.registryName = Take(kRegistryNameSet);
            if (slices_.registryName.empty()) return UriStatus::NoRegistryName;
        }
        if (Next() == '/') slices_.path = Take(kPathSet);
        return UriStatus::Parsed;
    }

    void ScanServer() {
        const std::size_t start = at_;
        const std::string_view userInfo = Take(kUserInfoSet);
        if (Next() == '@') {
            slices_.userInfo = userInfo;
            ++at_;
        } else {
            at_ = start;
        }
        slices_.host = TakeHost();
        if (Next() != ':') return;
        ++at_;
        // Kept: a port beyond 32 bits wraps. (PartUri.PortWrapsIn32Bits)
        for (; IsDigit(Next()); ++at_) {
            slices_.port = slices_.port * 10 + static_cast<std::uint32_t>(Next() - '0');
        }
    }

    // A dotted IPv4 address reads like any name; an IP literal is told by its brackets.
    std::string_view TakeHost() {
        if (Next() == '[') {
            const std::size_t end = RunEnd(text_, at_ + 1, kIpLiteralSet);
            if (end < text_.size() && text_[end] == ']') return TakeTo(end + 1);
        }
        return Take(kHostSet);
    }

    // A character left over is an error, whichever component it ended.
    UriStatus ScanQueryAndFragment() {
        if (Next() == '?') {
            ++at_;
            slices_.query = Take(kAnySet);
        }
        if (Next() == '#') {
            ++at_;
            slices_.fragment = Take(kAnySet);
        }
        return IsAtEnd() ? UriStatus::Parsed : UriStatus::Malformed;
    }

    bool IsAtEnd() const { return at_ == text_.size(); }
    char Next() const { return IsAtEnd() ? '\0' : text_[at_]; }
    bool StartsWith(std::string_view prefix) const {
        return text_.compare(at_, prefix.size(), prefix) == 0;
    }
    bool IsAtOneOf(CharacterSet set) const { return UnitSize(text_, at_, set | relaxed_) != 0; }

    std::string_view Take(CharacterSet set) { return TakeTo(RunEnd(text_, at_, set | relaxed_)); }
    std::string_view TakeTo(std::size_t end) {
        const std::size_t start = at_;
        at_ = end;
        return text_.substr(start, end - start);
    }

    std::string_view text_;
    std::size_t at_ = 0;
    CharacterSet relaxed_;
    UriSlices slices_;
};

}  // namespace

UriStatus ScanUri(std::string_view text, bool relaxed, UriSlices& slices) {
    UriScanner scanner(text, relaxed);
    const UriStatus status = scanner.Scan();
    slices = scanner.slices();
    return status;
}

}  // namespace tarn::opc
