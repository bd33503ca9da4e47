// vexpa storage FILE PART [STREAM]: a part that is a compound file, or a stream of it.

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/model/OpenPackage.h"
#include "tool/model/PartArgument.h"
#include "tool/model/StorageTree.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"
#include "vexpa/base/Result.h"

namespace vexpa_tool {

namespace {

namespace opc = tarn::opc;
using tarn::ComPtr;
using tarn::Failed;

constexpr std::size_t kIndentedLevels = 32;
constexpr std::size_t kMostCandidates = 8;  // named in a message

struct Arguments {
    std::string file;
    std::string part;
    std::string stream;
    bool json = false;
};

StorageTree ReadTree(opc::Package& package, const InputFile& file, const Arguments& arguments) {
    opc::Part& part = FindPart(package, file, arguments.part);
    ComPtr<IStorage> storage;
    if (!Failed(part.GetStorage(storage.Out()))) return StorageTree(std::move(storage));
    ComPtr<IStream> stream;
    const bool isReadable = !Failed(part.GetStream(stream.Out()));
    throw PartError(
        kReadOrWriteError, file, arguments.part,
        isReadable ? "is not a valid compound file" : "cannot be extracted: damaged or encrypted");
}

std::string NameText(const StorageElement& element, const opc::Part& part) {
    const std::u16string& name = element.level == 0 ? part.GetName().name : element.name;
    return PrintableOrQuotes(name);
}

std::size_t SizeWidth(const StorageTree& tree) {
    std::uint64_t largest = 0;
    for (const StorageElement& element : tree.Elements()) largest = std::max(largest, element.size);
    return std::to_string(largest).size();
}

std::string ValueText(const StorageElement& element, std::size_t sizeWidth) {
    if (!element.isStorage) return PaddedLeft(std::to_string(element.size), sizeWidth);
    if (!element.isReadable) return Inked(Ink::Bad, "unreadable");
    return element.clsid == GUID{} ? std::string() : ClsidText(element.clsid);
}

ExitStatus ShowTree(const InputFile& file, const Arguments& arguments, Output& out) {
    const auto package = OpenPackage(file);
    const StorageTree tree = ReadTree(*package, file, arguments);
    const opc::Part& part = FindPart(*package, file, arguments.part);
    const std::size_t sizeWidth = SizeWidth(tree);
    Table table;
    for (const StorageElement& element : tree.Elements()) {
        std::string cell(2 * std::min(element.level, kIndentedLevels), ' ');
        const std::string name = NameText(element, part);
        cell += element.isStorage ? "storage  " : "stream  ";
        cell += element.isStorage ? Inked(Ink::Strong, name) : name;
        table.Add({std::move(cell), ValueText(element, sizeWidth)});
    }
    table.WriteTo(out);
    return kDone;
}

ExitStatus FillTree(const InputFile& file, const Arguments& arguments, Json& json) {
    const auto package = OpenPackage(file);
    const StorageTree tree = ReadTree(*package, file, arguments);
    for (const StorageElement& element : tree.Elements()) {
        json["elements"].push_back(
            {{"level", element.level},
             {"kind", element.isStorage ? "storage" : "stream"},
             {"name", ToUtf8(element.name)},
             {"size", element.isStorage ? Json() : Json(element.size)},
             {"clsid", element.isStorage ? Json(ClsidText(element.clsid)) : Json()},
             {"readable", element.isReadable}});
    }
    return kDone;
}

std::string Ambiguous(const StorageTree& tree, const std::vector<std::size_t>& streams) {
    std::string text = "is ambiguous:";
    for (std::size_t i = 0; i < std::min(streams.size(), kMostCandidates); ++i) {
        text += (i == 0 ? " " : ", ") + Printable(tree.PathOf(streams[i]));
    }
    return streams.size() > kMostCandidates ? text + ", ..." : text;
}

std::size_t FindStream(const StorageTree& tree, const InputFile& file, const Arguments& arguments) {
    const std::u16string path = FromLocal(arguments.stream);
    std::vector<std::size_t> streams = tree.FindStreams(path);
    if (streams.empty()) streams = tree.FindStreams(Unescaped(path));
    const auto fail = [&](const std::string& what) {
        return PartError(kNoSuchPart, file, arguments.part,
                         PrintableLocal(arguments.stream) + ": " + what);
    };
    if (streams.empty()) throw fail("no such stream");
    if (streams.size() > 1) throw fail(Ambiguous(tree, streams));
    return streams.front();
}

// False when the stream ends early.
bool Copy(IStream& stream, std::uint64_t left, Output& out) {
    std::array<char, 64 << 10> piece;
    while (left > 0) {
        std::uint32_t read = 0;
        if (Failed(stream.Read(piece.data(), piece.size(), &read)) || read == 0) return false;
        out.Write(piece.data(), read);
        left -= std::min<std::uint64_t>(left, read);
    }
    return true;
}

ExitStatus WriteStream(const InputFile& file, const Arguments& arguments, Output& out) {
    const auto package = OpenPackage(file);
    const StorageTree tree = ReadTree(*package, file, arguments);
    const std::size_t element = FindStream(tree, file, arguments);
    const ComPtr<IStream> stream = tree.OpenStream(element);
    if (!stream || !Copy(*stream.Get(), tree.Elements()[element].size, out)) {
        throw PartError(kReadOrWriteError, file, arguments.part,
                        PrintableLocal(arguments.stream) + ": cannot be read");
    }
    return kDone;
}

CommandRun Declare(const CommandLine& line) {
    const auto arguments = std::make_shared<Arguments>();
    AddFile(line, arguments->file);
    AddPart(line, arguments->part, "What is a compound file").Required();
    const Argument stream =
        line.Option("STREAM", arguments->stream, "Write the bytes of this stream: a path or its end");
    AddJson(line, arguments->json).Excludes(stream);
    return [arguments, stream] {
        FileCommand command;
        command.showText = [&](const InputFile& file, Output& out) {
            const auto show = stream.IsGiven() ? WriteStream : ShowTree;
            return show(file, *arguments, out);
        };
        command.members = {{"elements", Json::array()}};
        command.fillJson = [&](const InputFile& file, Json& json) {
            return FillTree(file, *arguments, json);
        };
        return RunFile(arguments->file, arguments->json, command);
    };
}

const CommandRegistration registration({"storage", "Show a compound file part, or write a stream of it",
                                        Declare});

}  // namespace

}  // namespace vexpa_tool
