// Lists the streams of a compound file that is a part: ListStreams FILE PART

#include <cinttypes>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "examples/Arguments.h"
#include "examples/OpenDocument.h"
#include "vexpa/base/ComPtr.h"
#include "vexpa/base/Lifecycle.h"
#include "vexpa/base/Utf8.h"
#include "vexpa/opc/Package.h"

using namespace tarn;

namespace {

constexpr std::uint32_t kForReading = 0x10;  // STGM_READ and STGM_SHARE_EXCLUSIVE

struct FreeName {
    void operator()(char16_t* name) const { _XCoTaskMemFree(name); }
};

struct Folder {
    std::u16string path;
    ComPtr<IStorage> storage;
};

// Prints the streams of a folder, and adds the folders in it to those that wait.
void ListFolder(const Folder& folder, std::vector<Folder>& waiting) {
    ComPtr<IEnumSTATSTG> elements;
    if (Failed(folder.storage->EnumElements(0, nullptr, 0, elements.Out()))) return;

    STATSTG element;
    while (elements->Next(1, &element, nullptr) == S_OK) {
        const std::unique_ptr<char16_t, FreeName> name(element.pwcsName);
        if (!name) continue;
        const std::u16string path = folder.path + name.get();
        if (element.type == STGTY_STREAM) {
            std::printf("%8" PRIu64 " %s\n", element.cbSize, ToUtf8(path).c_str());
            continue;
        }
        ComPtr<IStorage> storage;
        if (Failed(folder.storage->OpenStorage(name.get(), nullptr, kForReading, nullptr, 0,
                                               storage.Out()))) {
            continue;
        }
        waiting.push_back({path + u'/', std::move(storage)});
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return Usage("ListStreams FILE PART");
    const Library library;
    const Handle<opc::Package> package = OpenPackage(argv[1]);
    if (!package) return 3;
    opc::Part* part = FindPart(*package, argv[2]);
    if (part == nullptr) return 4;

    ComPtr<IStorage> root;
    if (Failed(part->GetStorage(root.Out()))) return 5;  // no compound file, or a damaged one
    std::vector<Folder> waiting;
    waiting.push_back({u"", std::move(root)});
    while (!waiting.empty()) {
        const Folder folder = std::move(waiting.back());
        waiting.pop_back();
        ListFolder(folder, waiting);
    }
}
