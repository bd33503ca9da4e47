// vexpa ls FILE...: the entries of the zip archive, as its directory tells them.

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "tool/commands/Command.h"
#include "tool/commands/CommonArguments.h"
#include "tool/container/Container.h"
#include "tool/container/Names.h"
#include "tool/container/SpelledName.h"
#include "tool/model/OpenPackage.h"
#include "tool/text/Local.h"
#include "tool/text/Output.h"
#include "tool/text/Table.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace {

struct Arguments {
    FileOptions options;
    std::string sort;
    bool isLong = false;
    bool namesOnly = false;
};

// How many times smaller the data is, in tenths; 0 when nothing can be said.
std::uint64_t RatioTenths(const ContainerEntry& entry) {
    if (entry.compressedSize == 0 || entry.size > UINT64_MAX / 10) return 0;
    return entry.size * 10 / entry.compressedSize;
}

std::string RatioText(const ContainerEntry& entry) {
    const std::uint64_t tenths = RatioTenths(entry);
    if (tenths == 0) return "-";
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + ":1";
}

std::string Hex(std::uint32_t number, int digits) {
    char text[16];
    std::snprintf(text, sizeof text, "%0*x", digits, number);
    return text;
}

// Encrypted, with a descriptor, named in UTF-8.
std::string FlagLetters(std::uint16_t flags) {
    const auto letter = [flags](std::uint16_t bit, char c) { return (flags & bit) != 0 ? c : '-'; };
    return {letter(kEncrypted, 'e'), letter(kHasDescriptor, 'd'), letter(kIsUtf8, 'u')};
}

std::string NameText(const Container& container, const ContainerEntry& entry) {
    return PrintableOrQuotes(FromUtf8(SpelledName(container, entry)));
}

std::string OffsetText(const ContainerEntry& entry) {
    return entry.headerPosition == kNowhere ? "beyond" : std::to_string(entry.headerPosition);
}

std::string MadeByText(const ContainerEntry& entry) {
    return HostName(static_cast<std::uint8_t>(entry.madeBy >> 8)) + " " +
           std::to_string(entry.madeBy & 0xFF);
}

Table::Row MakeRow(const Container& container, const ContainerEntry& entry, bool isLong) {
    Table::Row row = {MethodName(entry.method),   std::to_string(entry.compressedSize),
                      std::to_string(entry.size), RatioText(entry),
                      Hex(entry.crc, 8),          FlagLetters(entry.flags)};
    if (isLong) {
        row.insert(row.end(), {Hex(entry.flags, 4), OffsetText(entry), std::to_string(entry.extraSize),
                               DosTimeText(entry.date, entry.time), MadeByText(entry),
                               std::to_string(entry.neededVersion)});
    }
    row.push_back(NameText(container, entry));
    return row;
}

void WriteTable(const Container& container, const std::vector<const ContainerEntry*>& entries,
                bool isLong, Output& out) {
    Table table;
    for (const std::size_t column : {1u, 2u, 3u}) table.AlignRight(column);
    Table::Row heading = {"Method", "Packed", "Size", "Ratio", "CRC", "Flags"};
    if (isLong) {
        heading.insert(heading.end(), {"Bits", "Offset", "Extra", "Modified", "Made by", "Needs"});
        for (const std::size_t column : {7u, 8u}) table.AlignRight(column);
    }
    heading.emplace_back("Name");
    table.AddHeading(std::move(heading));
    for (const ContainerEntry* entry : entries) table.Add(MakeRow(container, *entry, isLong));
    table.WriteTo(out);
}

void WriteNames(const std::vector<const ContainerEntry*>& entries, Output& out) {
    for (const ContainerEntry* entry : entries) {
        out.Write(entry->name);
        out.Write("\0", 1);
    }
}

// In the order of the directory without one that is asked for.
std::vector<const ContainerEntry*> Sorted(const Container& container, const std::string& order) {
    std::vector<const ContainerEntry*> entries;
    for (const ContainerEntry& entry : container.Entries()) entries.push_back(&entry);
    const auto sortBy = [&](auto isBefore) {
        std::stable_sort(entries.begin(), entries.end(),
                         [&](auto* a, auto* b) { return isBefore(*a, *b); });
    };
    using Entry = ContainerEntry;
    if (order == "name") sortBy([](const Entry& a, const Entry& b) { return a.name < b.name; });
    if (order == "size") sortBy([](const Entry& a, const Entry& b) { return a.size > b.size; });
    if (order == "ratio") {
        sortBy([](const Entry& a, const Entry& b) { return RatioTenths(a) > RatioTenths(b); });
    }
    if (order == "offset") {
        sortBy([](const Entry& a, const Entry& b) { return a.headerPosition < b.headerPosition; });
    }
    return entries;
}

// Throws when the file is no archive at all.
Container ReadContainer(const InputFile& file) {
    std::optional<Container> container = Container::Read(file.path);
    if (!container || container->Source() == ContainerSource::None) throw NotOpened(file);
    return std::move(*container);
}

ExitStatus EndOf(const Container& container, const InputFile& file) {
    if (container.EntryCount() > container.Entries().size() &&
        container.Source() == ContainerSource::Directory) {
        throw ToolError(kReadOrWriteError, PrintableLocal(file.name) + ": " +
                                               std::to_string(container.EntryCount()) +
                                               " entries, more than are shown");
    }
    if (container.Source() == ContainerSource::Directory) return kDone;
    throw ToolError(kNotOpened, PrintableLocal(file.name) +
                                    ": no sound directory: these are the entries' own headers");
}

ExitStatus Show(const InputFile& file, const Arguments& arguments, Output& out) {
    const Container container = ReadContainer(file);
    const std::vector<const ContainerEntry*> entries = Sorted(container, arguments.sort);
    if (arguments.namesOnly) {
        WriteNames(entries, out);
    } else {
        WriteTable(container, entries, arguments.isLong, out);
    }
    return EndOf(container, file);
}

Json EntryJson(const Container& container, const ContainerEntry& entry) {
    return {{"name", ToUtf8(FromUtf8(SpelledName(container, entry)))},
            {"method", entry.method},
            {"method_name", MethodName(entry.method)},
            {"compressed_size", entry.compressedSize},
            {"size", entry.size},
            {"crc", Hex(entry.crc, 8)},
            {"flags", entry.flags},
            {"encrypted", (entry.flags & kEncrypted) != 0},
            {"offset", entry.headerPosition == kNowhere ? Json() : Json(entry.headerPosition)},
            {"extra_size", entry.extraSize},
            {"modified", DosTimeText(entry.date, entry.time)},
            {"made_by", MadeByText(entry)},
            {"needed_version", entry.neededVersion}};
}

ExitStatus Fill(const InputFile& file, const Arguments& arguments, Json& json) {
    json["opened"] = static_cast<bool>(FindPackage(file));
    const Container container = ReadContainer(file);
    json["directory"] = container.Source() == ContainerSource::Directory;
    for (const ContainerEntry* entry : Sorted(container, arguments.sort)) {
        json["entries"].push_back(EntryJson(container, *entry));
    }
    return EndOf(container, file);
}

CommandRun Declare(const CommandLine& line) {
    const auto arguments = std::make_shared<Arguments>();
    AddFiles(line, arguments->options);
    const Argument isLong =
        line.Flag("-l,--long", arguments->isLong, "Show all that the directory says of an entry");
    line.Option("--sort", arguments->sort, "Another order than the directory's")
        .Called("name|size|ratio|offset")
        .OneOf({"name", "size", "ratio", "offset"});
    line.Flag("-0,--null", arguments->namesOnly,
              "Only the names, as they are, each with a NUL after it")
        .Excludes(isLong);
    return [arguments] {
        FileCommand command;
        if (arguments->namesOnly) command.heading = Heading::None;
        command.showText = [&](const InputFile& file, Output& out) {
            return Show(file, *arguments, out);
        };
        command.members = {{"directory", false}, {"entries", Json::array()}};
        command.fillJson = [&](const InputFile& file, Json& json) {
            return Fill(file, *arguments, json);
        };
        return RunFiles(arguments->options, command);
    };
}

const CommandRegistration registration({"ls", "List the entries of the zip archive", Declare});

}  // namespace

}  // namespace vexpa_tool
