#include "tests/hostile/compound/CraftedStorage.h"

#include <utility>

#include "tests/hostile/CraftedPackage.h"
#include "tests/hostile/PackageText.h"
#include "tests/hostile/SmallPackage.h"

namespace vexpa_test {

std::string ReadAsPicture(const std::string& bytes) {
    return ReadPackage(SmallPackageWith(kPictureEntry, bytes).Bytes());
}

std::string PictureText(const std::string& bytes, const std::string& storage) {
    return SmallPackageText(BytesText(bytes) + (storage.empty() ? "" : " " + storage));
}

TEST_P(HostileStorage, HoldsThis) {
    const std::string bytes = GetParam().bytes();
    EXPECT_EQ(ReadAsPicture(bytes), PictureText(bytes, GetParam().storage));
}

std::string NameOfStorage(const testing::TestParamInfo<CraftedStorage>& info) {
    return info.param.name;
}

void PrintTo(const CraftedStorage& crafted, std::ostream* out) {
    *out << crafted.purpose;
}

CompoundImage SmallCompound(const CompoundLayout& layout) {
    return CompoundImage(
        {Storage(u"D", {{u"Inner", kInnerText}}), {u"Small", kSmallText}, {u"Large", LargeContent()}},
        layout);
}

// No two sectors are alike.
std::string LargeContent() {
    std::string content;
    while (content.size() < 5'000) content += std::to_string(content.size()) + " ";
    return content.substr(0, 5'000);
}

std::string SmallCompoundText() {
    return SmallCompoundText(BytesText(kInnerText), BytesText(kSmallText), BytesText(LargeContent()));
}

std::string SmallCompoundText(const std::string& inner, const std::string& small,
                              const std::string& large) {
    return "{D{Inner " + inner + "}, Large " + large + ", Small " + small + "}";
}

std::function<std::string()> CompoundWith(std::function<void(CompoundImage&)> change) {
    return [change = std::move(change)] {
        CompoundImage image = SmallCompound();
        change(image);
        return image.bytes;
    };
}

}  // namespace vexpa_test
