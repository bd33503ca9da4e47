#include "tool/check/Rfc3986.h"

#include <algorithm>

namespace vexpa_tool {

namespace {

std::string_view PathOf(std::string_view target) {
    return target.substr(0, target.find_first_of("?#"));
}

// RFC 3986, 5.2.4, on a path that begins with '/'.
std::string WithoutDotSegments(std::string_view path) {
    std::string result;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/', 1), path.size());
        const std::string_view segment = path.substr(1, end - 1);
        path.remove_prefix(end);
        const bool isDot = segment == ".", isDots = segment == "..";
        if (isDots) result.resize(result.empty() ? 0 : result.rfind('/'));
        if (!isDot && !isDots) result.append("/").append(segment);
        if ((isDot || isDots) && path.empty()) result += '/';
    }
    return result;
}

}  // namespace

std::string ResolveByRfc(std::string_view source, std::string_view target) {
    std::string base = source.starts_with('/') ? "" : "/";
    base += source;
    const std::string_view path = PathOf(target);
    if (path.empty()) return WithoutDotSegments(base);
    if (path.front() == '/') return WithoutDotSegments(path);
    base.resize(base.rfind('/') + 1);
    return WithoutDotSegments(base.append(path));
}

}  // namespace vexpa_tool
