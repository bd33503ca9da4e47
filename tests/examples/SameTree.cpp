#include "tests/examples/SameTree.h"

#include <string>
#include <vector>

#include "tests/xmlfx/SetText.h"

namespace vexpa_test {

namespace {

using tarn::xmlfx::XmlRoAttr;

struct Pair {
    const XmlRoAttr* left;
    const XmlRoAttr* right;
    std::string path;  // of positions
};

}  // namespace

testing::AssertionResult SameTree(const importer::Tree& left, const importer::Tree& right) {
    if (left.elements != right.elements || left.attributes != right.attributes ||
        left.depth != right.depth || left.token != right.token) {
        return testing::AssertionFailure() << "the trees differ in their counts or at the root";
    }
    if (!left.root || !right.root) return testing::AssertionFailure() << "a tree is empty";

    std::vector<Pair> open{{left.root.Get(), right.root.Get(), ""}};
    while (!open.empty()) {
        const Pair pair = std::move(open.back());
        open.pop_back();
        if (ValueOf(*pair.left) != ValueOf(*pair.right)) {
            return testing::AssertionFailure() << "value strings differ at " << pair.path;
        }
        if (pair.left->GetCount() != pair.right->GetCount()) {
            return testing::AssertionFailure() << "counts differ at " << pair.path;
        }
        for (std::uint32_t i = 0; i < pair.left->GetCount(); ++i) {
            std::uint32_t leftToken = 0, rightToken = 1;
            const XmlRoAttr* leftValue = pair.left->GetAt(i, &leftToken);
            const XmlRoAttr* rightValue = pair.right->GetAt(i, &rightToken);
            std::string path = pair.path + "/" + std::to_string(i);
            if (leftToken != rightToken) {
                return testing::AssertionFailure() << "tokens differ at " << path;
            }
            open.push_back({leftValue, rightValue, std::move(path)});
        }
    }
    return testing::AssertionSuccess();
}

}  // namespace vexpa_test
