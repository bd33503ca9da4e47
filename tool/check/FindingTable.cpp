#include "tool/check/FindingTable.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <iterator>
#include <utility>

namespace vexpa_tool {

namespace {

constexpr const char* kSeverityTexts[] = {"error", "warning", "info"};

constexpr const char* kStepTexts[] = {
    "file",      "zip archive", "content types", "package relationships", "part relationships",
    "part data", "shape",       "vocabulary",
};

constexpr unsigned kIdsOfAStep = 100;

// Relationships are read for the package and for parts, and told of alike.
constexpr std::pair<FindingId, Step> kOtherSteps[] = {
    {FindingId::DocumentType, Step::PackageRelationships},
    {FindingId::DocumentType, Step::PartRelationships},
    {FindingId::CaseVariant, Step::PartRelationships},
    {FindingId::UnexpectedRelationshipsRoot, Step::PartRelationships},
    {FindingId::RepeatedType, Step::PackageRelationships},
    {FindingId::RepeatedId, Step::PackageRelationships},
    {FindingId::OddTarget, Step::PackageRelationships},
    {FindingId::OtherResolution, Step::PackageRelationships},
    {FindingId::IncompleteRelationship, Step::PackageRelationships},
};

}  // namespace

// A paragraph says what is the matter, what the library does about it, and what follows.
constexpr FindingKind kFindingTable[kFindingKinds] = {
    {FindingId::UnreadableFile, Severity::Error, "the file cannot be read",
     "The path leads to nothing, to something that is no regular file, or to a file that may not "
     "be read. Nothing else can be said about it.",
     "check the path and the permissions"},
    {FindingId::NameOutsideLocale, Severity::Error, "the file name is not text in the locale",
     "Paths pass through the encoding of the process locale on their way to the file system. A "
     "name with bytes outside it arrives changed, so the library looks for a file that is not "
     "there.",
     "rename the file, or run under the locale that its name was written in"},
    {FindingId::NotAZip, Severity::Error, "not a zip archive",
     "A package is a zip archive, and this file shows no sign of one: neither an end record in its "
     "last 64 KiB nor an entry at its start. Downloads that failed are often a web page under the "
     "name of a document, and the small files that editors lay beside an open document carry its "
     "extension.",
     "obtain the file again, or look at its first bytes"},
    {FindingId::EncryptedPackage, Severity::Error, "password-protected document",
     "A document saved with a password is no zip archive but a compound file, with the package "
     "encrypted in its stream EncryptedPackage. The library does not decrypt.",
     "open it with its password in an editor and save it without one"},
    {FindingId::LegacyDocument, Severity::Error, "document in the older binary format",
     "The file is a compound file with the streams of the binary formats before Office Open XML. "
     "Only its extension, if anything, says otherwise.",
     "give it to an importer of the binary format, or convert it"},
    {FindingId::EmptyFile, Severity::Error, "empty file",
     "The file has no bytes: a download, a copy or a save that never got to its content.",
     "obtain the file again"},
    {FindingId::OtherCompoundFile, Severity::Error, "compound file of another kind",
     "The file is a compound file, but none with the streams of a document that is known here: a "
     "mail message, a thumbnail cache, an embedded object, or a document of another program.",
     "give it to a program that reads compound files"},
    {FindingId::DamagedCompoundFile, Severity::Error, "damaged compound file",
     "The file begins like a compound file, which password-protected and legacy documents are, but "
     "cannot be opened as one: it is cut short, or its tables contradict one another.",
     "obtain the file again"},
    {FindingId::UnknownReason, Severity::Error, "refused for a reason that was not found",
     "The library does not open the package, and none of the checks sees why. The file may have "
     "changed in between, or memory may have run out.",
     "check it again; if it stays, this is a fault of the check and worth a report"},

    {FindingId::NoDirectory, Severity::Error, "no sound directory",
     "The directory at the end of a zip archive lists its entries, and the end record after it "
     "says where it lies. Without a directory that agrees with what the end record says about its "
     "size or its count the library sees no archive. Most often the file is cut short: the end is "
     "lost first.",
     "obtain the file again; if there is no other, a zip repair tool can make a directory of the "
     "entries"},
    {FindingId::BytesBefore, Severity::Warning, "bytes before the first entry",
     "Something stands before the archive. The library finds the directory from the end and does "
     "not mind, but many readers tell a zip archive by its first bytes, and text put there may be "
     "a script that other programs run.",
     "remove the bytes, or pack the archive anew"},
    {FindingId::BytesAfter, Severity::Warning, "bytes that belong to nothing",
     "Bytes lie between the entries, around the directory or after the end record that no entry "
     "and no record accounts for: rests of an earlier archive, a second archive, padding. The "
     "library passes over them; others stop there, or read the other archive.",
     "pack the archive anew"},
    {FindingId::Backslash, Severity::Error, "backslash in an entry name",
     "Names in a zip archive have '/' between their segments. The library turns the '\\' of a "
     "request into '/', so an entry whose name keeps its '\\' is never found. Only names without "
     "any '/' that come from a system whose separator is '\\' are read with '/'; then the finding "
     "is information.",
     "write the entry names with '/'"},
    {FindingId::DuplicateName, Severity::Warning, "the same entry name twice",
     "Of several entries of one name the library reads the first in the directory. Others read the "
     "last, so the same file shows different content to different readers.",
     "leave one entry of each name"},
    {FindingId::CaseDuplicate, Severity::Warning, "entry names that differ only in letter case",
     "Part names that differ only in the case of ASCII letters are the same name (ECMA-376 Part "
     "2), but the library compares exactly and sees two parts. Unpacked on many file systems, one "
     "overwrites the other.",
     "rename one of them, and what refers to it"},
    {FindingId::LocalHeaderDiffers, Severity::Warning, "directory and local header disagree",
     "Each entry has a header in the directory and one before its data. The library goes by the "
     "directory; programs that read an archive from its start go by the local header and see "
     "something else.",
     "pack the archive anew"},
    {FindingId::UnicodePath, Severity::Warning, "a second name for an entry",
     "An Info-ZIP Unicode Path field (0x7075) gives the entry a name other than the one in its "
     "header. The library goes by the header; unpacking programs go by the field.",
     "write one name, in UTF-8, and no such field"},
    {FindingId::Unextractable, Severity::Error, "method, encryption or disk that is not supported",
     "The library reads entries that are stored or deflated, not encrypted, and in this one file. "
     "A part in another entry is there but has no data; where it holds content types or "
     "relationships, these are lost.",
     "pack the archive anew: with deflate, without a password, in one file"},
    {FindingId::WildcardInName, Severity::Info, "characters of a pattern in an entry name",
     "Entries are asked for by patterns, in which '*', '?' and '[' have a meaning. An entry named "
     "exactly like the request is taken first, so nothing is lost here; but part names may not "
     "hold these characters, and on other platforms the request may find another entry.",
     "rename the entry"},
    {FindingId::NameEncoding, Severity::Warning, "entry name outside UTF-8 or outside the locale",
     "A name that is not valid UTF-8 is read as code page 437, the encoding of old archives. On "
     "their way to the archive names pass through the encoding of the process locale; what that "
     "lacks turns into '?', which matches any character. The relationships to such an entry may "
     "miss it.",
     "write entry names in ASCII, or in UTF-8 with the flag for it"},
    {FindingId::DamagedData, Severity::Error, "the data of an entry is damaged",
     "The data does not inflate to as many bytes as the directory says, or their CRC is another "
     "one. The library hands out nothing of a damaged entry. This is seen when the entry is read "
     "(--deep), or when opening needs it.",
     "obtain the file again, or restore the entry from another copy"},
    {FindingId::DataElsewhere, Severity::Error, "the data of an entry is not where the directory says",
     "At the offset that the directory gives lies no local header, or the data would reach beyond "
     "the end of the file. The entry is listed but cannot be extracted.",
     "obtain the file again, or pack the archive anew"},
    {FindingId::LeadingSlash, Severity::Warning, "entry name that begins with a slash",
     "A part name begins with '/', the entry of the part does not. The library drops the slash of "
     "the part name and then compares exactly, so it never finds this entry.",
     "write the entry name without its first '/'"},
    {FindingId::EndRecordDiffers, Severity::Warning, "the end record is wrong about the directory",
     "The end record gives the number of entries, and the size and offset of the directory. The "
     "library opens an archive when either size or count fit what lies there; stricter readers "
     "refuse it.",
     "pack the archive anew"},
    {FindingId::NoDeflateStream, Severity::Info, "an empty entry without any packed data",
     "The entry says that it is deflated and has no bytes, packed or not. Even nothing packs to "
     "two bytes, so strict readers call it damaged. The library reads it as empty.",
     "store empty entries instead of deflating them"},

    {FindingId::NoContentTypes, Severity::Error, "no [Content_Types].xml",
     "Opening begins with the entry [Content_Types].xml, spelled exactly so and not in a folder. A "
     "zip archive without it is some other kind of file, or a package that was unpacked and packed "
     "again one folder too high.",
     "pack the content of the folder, not the folder, and keep the name as it is"},
    {FindingId::MalformedContentTypes, Severity::Error, "[Content_Types].xml is not well-formed",
     "The entry is there but does not parse, and the package does not open. An empty entry is not "
     "well-formed either. Documents that nest too deep or grow too much by entities are refused as "
     "well.",
     "fix the XML at the place named, or restore the entry if it is empty"},
    {FindingId::PartWithoutType, Severity::Warning, "part without a content type",
     "Neither an Override of the part's name nor a Default of its extension gives it a content "
     "type, so the library answers an empty one. Importers that choose by content type pass over "
     "the part.",
     "add a Default for the extension or an Override for the part"},
    {FindingId::IdleOverride, Severity::Info, "content-type rule that does nothing",
     "An Override names a part that is not in the archive, or a rule repeats an earlier one. Of "
     "rules for the same name or extension the first counts.",
     "remove the rule"},
    {FindingId::NearMissOfType, Severity::Warning, "content-type rule that misses by a little",
     "The name in an Override, or the extension in a Default, differs from what the archive has "
     "only in letter case, or the extension is written with its dot. The library compares exactly, "
     "so the rule does not apply to the part it was meant for.",
     "spell the rule as the entry is spelled; an extension has no dot"},
    {FindingId::DocumentType, Severity::Info, "DOCTYPE in content types or relationships",
     "Packages may not hold document type declarations (ECMA-376 Part 2), and stricter readers "
     "refuse them. The library expands the entities that are declared inside, within bounds, and "
     "never reads anything from outside.",
     "remove the declaration and write the values out"},
    {FindingId::UnreadableContentTypes, Severity::Error, "[Content_Types].xml cannot be extracted",
     "The entry is listed, but its data is damaged, encrypted, packed by an unknown method or not "
     "there.",
     "obtain the file again, or pack the archive anew"},
    {FindingId::UnexpectedTypesRoot, Severity::Info, "unexpected root of [Content_Types].xml",
     "The root element should be Types in the namespace of package content types. The library "
     "takes every Override and Default element of the document, wherever it stands; stricter "
     "readers refuse it.",
     "write the root element and its namespace as the standard has them"},
    {FindingId::IncompleteTypeRule, Severity::Warning, "content-type rule without an attribute",
     "An Override needs PartName and ContentType, a Default needs Extension and ContentType. The "
     "library passes over a rule that lacks one of them.",
     "add the attribute"},

    {FindingId::NoPackageRelationships, Severity::Error, "no readable _rels/.rels",
     "After the content types the relationships of the package are read, from the entry "
     "_rels/.rels. When it is missing, empty, damaged or not well-formed, the package does not "
     "open.",
     "restore _rels/.rels; it needs at least the relationship to the main part"},
    {FindingId::LastTargetMissing, Severity::Error, "the last package relationship has no part",
     "The library loads the target of each package relationship, and what came of the last one "
     "decides whether the package opens. A package with a perfect main part is refused when, say, "
     "the thumbnail that is named last was left out.",
     "add the part, remove the relationship, or move it before another one"},
    {FindingId::TargetMissing, Severity::Warning, "a package relationship has no part",
     "The target of a package relationship is not in the archive. Only the last relationship "
     "decides whether the package opens, so this one costs its own target and nothing else.",
     "add the part or remove the relationship"},
    {FindingId::NoOfficeDocument, Severity::Info, "no officeDocument relationship",
     "Importers find the main part by asking the package for its officeDocument relationship. This "
     "package has none: it is a drawing, a printed page, a model or another kind of package, or a "
     "damaged one.",
     "see the types that it has with 'vexpa rels'"},
    {FindingId::LastIsExternal, Severity::Error, "the last package relationship is external",
     "The library looks for a part for every package relationship, external ones included, and the "
     "last one decides. An external target is no part, so the package does not open.",
     "move the relationship before another one"},
    {FindingId::CaseVariant, Severity::Warning, "the target exists under another letter case",
     "Entry names are compared exactly. The archive has an entry that differs from the target only "
     "in letter case, as file systems that ignore case let happen. It is an error where it keeps "
     "the package from opening.",
     "entry names are compared exactly: rename the entry, or fix the target"},
    {FindingId::StrictDocument, Severity::Info, "Strict document",
     "The document is of the Strict conformance class: its relationship types begin with "
     "http://purl.oclc.org/ooxml. The library's table has the Transitional types, so asking it for "
     "the officeDocument relationship, or for any other by its type id, finds nothing.",
     "go through the relationships and compare types, or save as Transitional"},
    {FindingId::EmptyRelationships, Severity::Warning, "_rels/.rels has no relationships",
     "The package opens, since nothing can fail, but nothing leads from it to a part: a search by "
     "type or by Id finds nothing.",
     "add the relationship to the main part"},
    {FindingId::UnexpectedRelationshipsRoot, Severity::Info, "unexpected root of relationships",
     "The root element should be Relationships in the namespace of package relationships. The "
     "library takes every Relationship element of the document, wherever it stands; stricter "
     "readers refuse it.",
     "write the root element and its namespace as the standard has them"},

    {FindingId::DanglingTarget, Severity::Warning, "internal target without a part",
     "The relationship says that its target is in the package, but the archive has no such entry. "
     "The library answers no part. Some writers leave 'NULL' for an image that they could not "
     "save.",
     "add the part, or remove the relationship and what uses its Id"},
    {FindingId::RepeatedType, Severity::Info, "several relationships of one type",
     "A look-up by type id answers the first relationship of the type in document order, not the "
     "lowest Id. Where a type occurs several times, a look-up by type misses all but one.",
     "go through all relationships, or look up by Id"},
    {FindingId::RepeatedId, Severity::Warning, "the same Id twice",
     "Ids must be unique within a relationship stream. The library keeps the first; a later one is "
     "found by its type only, and only if it is the first of that type. References to the Id get "
     "the first.",
     "give the later relationship an Id of its own"},
    {FindingId::OddTarget, Severity::Info, "target that is written oddly",
     "The target is no URI reference, has a fragment, escapes or backslashes, or is written as an "
     "absolute URI although it is internal. The library takes targets as they stand: it decodes no "
     "escapes and keeps fragments, so such a target often names no entry.",
     "write the target as a plain relative path, or TargetMode=\"External\" for what lies outside"},
    {FindingId::UnknownType, Severity::Info, "relationship types without a number",
     "The library numbers 60 relationship types. Others answer RelTypeUnknown and are found by "
     "their type text or Id only. This is common: slides and worksheets are among them.",
     "compare the type text for these"},
    {FindingId::MalformedRelationships, Severity::Warning, "relationships of a part cannot be read",
     "The .rels entry of a part is damaged, empty or not well-formed. The part is there, but the "
     "library answers no relationships for it, and says nothing about it.",
     "fix the entry; what the part refers to cannot be found until then"},
    {FindingId::OtherResolution, Severity::Info, "target that resolves differently elsewhere",
     "The library resolves targets by rules of its own: every '..' climbs, also inside a file "
     "name, a segment '.' stays, and climbing beyond the root begins again below it. By RFC 3986 "
     "this target names another part.",
     "write the target without '.' and '..', from the root: /word/media/image1.png"},
    {FindingId::StrayRelationships, Severity::Info, "relationships of a part that is not there",
     "A .rels entry belongs to the part whose name it carries. There is no such part, so it is "
     "never read. It is a warning where a part differs from the name only in letter case, and "
     "loses its relationships.",
     "name the .rels entry exactly like its part"},
    {FindingId::IncompleteRelationship, Severity::Warning, "relationship without an attribute",
     "A relationship needs Id, Type and Target. The library makes one with an empty text for what "
     "is missing; it can hardly be found or followed.",
     "add the attribute"},
    {FindingId::UnreachedEntry, Severity::Info, "entries that no relationship reaches",
     "Parts are reached by way of relationships. Nothing leads to these entries, so an importer "
     "that follows relationships never sees them: rests of an editor, padding, or content that is "
     "hidden there. Fixed-layout documents are another matter: their XML refers to pages and fonts "
     "by name, and no relationship need lead to them.",
     "remove them, or add the relationship that was meant to lead there"},
    {FindingId::UnknownId, Severity::Warning, "reference to a relationship that is not there",
     "The XML of the part refers to a relationship by its Id (r:id, r:embed and the like), but the "
     "part has no relationship of this Id: it was lost, or stands with another part. The importer "
     "looks it up and gets nothing (--deep).",
     "restore the relationship, or remove the reference"},

    {FindingId::MalformedPart, Severity::Warning, "part that is not well-formed XML",
     "The content type says XML, but the part does not parse. The library hands out its bytes all "
     "the same; the importer's parser will stop at the place named. An empty part is not "
     "well-formed either.",
     "fix the XML at the place named, or restore the part if it is empty"},
    {FindingId::NoCompoundFile, Severity::Error, "storage part that is no compound file",
     "The part should hold a compound file (it is an embedded object or a macro project, or begins "
     "like one), but cannot be opened as a storage: it is something else, cut short, or its chains "
     "run in circles.",
     "restore the part; its bytes can still be had as a stream"},
    {FindingId::InterleavedPart, Severity::Info, "part in pieces",
     "The entries [0].piece, [1].piece and so on are the pieces of one part (ECMA-376 Part 2, "
     "interleaving). The library does not join them, so the part itself is not found.",
     "write the part as one entry"},
    {FindingId::PartNotLookedAt, Severity::Info, "part that was not looked at, or not to its end",
     "The part is larger than the limit for reading (--max-part-size), or going on would take too "
     "much time or memory: for namespace names, names or open elements without end, or for entries "
     "that share their bytes. What it holds was not checked.",
     "raise the limit if the file can be trusted"},
    {FindingId::PartDocumentType, Severity::Warning, "DOCTYPE in a part",
     "Parts may not hold document type declarations (ECMA-376 Part 2). Entities can make a small "
     "part grow without bound or draw in other files, so importers refuse such parts or have to "
     "defend themselves.",
     "remove the declaration and write the values out"},

    {FindingId::ImpossibleSize, Severity::Error, "a size that cannot be true",
     "The directory claims more bytes than the packed data can hold (deflate makes at most 1032 "
     "bytes of one), or two different sizes for stored data. The library allocates nothing for "
     "such a claim and does not extract the entry.",
     "pack the archive anew; if it came from outside, do not trust it"},
    {FindingId::Overlap, Severity::Error, "entries that share bytes",
     "The data of two entries overlaps, or reaches into the directory. No honest writer does this; "
     "it is how a small archive is made to unpack to any size, and how scanners are deceived.",
     "do not trust the file"},
    {FindingId::HighRatio, Severity::Info, "entry that grows more than a hundredfold",
     "An entry of more than 1 MiB was packed better than 100 to 1. Spreadsheets with long runs of "
     "equal rows do that; so do archives made to fill a disk or memory.",
     "read it with a limit when the file comes from outside"},
    {FindingId::ExternalTargets, Severity::Info, "external targets",
     "Relationships whose target lies outside of the package, counted by type. Hyperlinks wait for "
     "a click; what is loaded without one is named apart (VX607).",
     "list them with 'vexpa rels --all --external'"},
    {FindingId::ActiveContent, Severity::Info, "macros, controls or embedded documents",
     "The package holds code or other documents: a macro project, ActiveX controls, OLE objects, "
     "embedded packages. Nothing is wrong with that, but what is inside needs its own look.",
     "look at them with 'vexpa storage' and 'vexpa cat'"},
    {FindingId::PathClimbs, Severity::Warning, "entry name that leaves its folder",
     "The name has '.' or '..' segments, a drive letter, or empty segments. Part names may not "
     "have them; the library compares names as they stand, while a careless program that unpacks "
     "the archive writes outside of its folder.",
     "rename the entry; do not unpack the file by name"},
    {FindingId::LoadedFromOutside, Severity::Info, "target outside that is loaded unasked",
     "An attached template, a linked object or image, a frame, a sub-document, an imported document "
     "or a data source lies outside of the package, and editors load it without a click. It is a "
     "warning where the target is on "
     "another machine: templates from the network are a known way of attack.",
     "remove the relationship, or embed what it leads to"},
    {FindingId::TooManyEntries, Severity::Warning, "more entries than are looked at",
     "The archive has more entries than the limit for looking (--max-entries; 1,048,576 without "
     "it). The library lists them all; the check has looked at the first ones only.",
     "raise --max-entries if the file can be trusted"},
    {FindingId::DeceptiveName, Severity::Warning, "entry name that is not what it looks like",
     "The name has control characters, characters that turn the direction of writing, or "
     "non-characters, so what a person sees is not what a program compares. Here they are shown "
     "escaped; a file manager may show a program as a picture.",
     "rename the entry; do not trust the file"},

    {FindingId::UnknownNamespaces, Severity::Info, "namespaces outside the vocabulary",
     "Elements or attributes belong to namespaces that the library has no tokens for. The "
     "namespace maps answer nothing for them, and attribute sets leave them out (--deep).",
     "see 'vexpa tokens --namespaces' for the namespaces that are known"},
    {FindingId::UnknownNames, Severity::Info, "names outside the vocabulary",
     "Elements or attributes of known namespaces have names without a token. Elements have to be "
     "told apart by their text, and attribute sets leave such attributes out (--deep).",
     "see 'vexpa tokens FILE PART' for each name and its token"},
};

const FindingKind& KindOf(FindingId id) {
    return *std::lower_bound(
        std::begin(kFindingTable), std::end(kFindingTable), id,
        [](const FindingKind& kind, FindingId wanted) { return kind.id < wanted; });
}

std::string IdText(FindingId id) {
    char text[8];
    std::snprintf(text, sizeof text, "VX%03u", static_cast<unsigned>(id));
    return text;
}

const FindingKind* FindKind(std::string_view text) {
    const auto* found = std::find_if(std::begin(kFindingTable), std::end(kFindingTable),
                                     [&](const FindingKind& kind) { return IdText(kind.id) == text; });
    return found == std::end(kFindingTable) ? nullptr : found;
}

Step StepOf(FindingId id) {
    return static_cast<Step>(static_cast<unsigned>(id) / kIdsOfAStep);
}

std::vector<Step> StepsOf(FindingId id) {
    std::vector<Step> steps = {StepOf(id)};
    for (const auto& [other, step] : kOtherSteps) {
        if (other == id) steps.push_back(step);
    }
    std::sort(steps.begin(), steps.end());
    return steps;
}

const char* SeverityText(Severity severity) {
    return kSeverityTexts[static_cast<std::size_t>(severity)];
}

const char* StepText(Step step) {
    return kStepTexts[static_cast<std::size_t>(step)];
}

}  // namespace vexpa_tool
