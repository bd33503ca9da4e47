// tool/check/Finding.h - one thing that a check has found out about a package.
#ifndef VEXPA_TOOL_CHECK_FINDING_H_
#define VEXPA_TOOL_CHECK_FINDING_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vexpa_tool {

enum class Severity { Error, Warning, Info };

// In the order in which a package is opened and used.
enum class Step {
    File,
    Archive,
    ContentTypes,
    PackageRelationships,
    PartRelationships,
    PartData,
    Shape,
    Vocabulary,
};

// The number is the published id: 305 is VX305. Numbers are never given anew.
enum class FindingId : std::uint16_t {
    UnreadableFile = 1,
    NameOutsideLocale = 2,
    NotAZip = 10,
    EncryptedPackage = 11,
    LegacyDocument = 12,
    EmptyFile = 13,
    OtherCompoundFile = 14,
    DamagedCompoundFile = 15,
    UnknownReason = 99,

    NoDirectory = 101,
    BytesBefore = 102,
    BytesAfter = 103,
    Backslash = 104,
    DuplicateName = 105,
    CaseDuplicate = 106,
    LocalHeaderDiffers = 107,
    UnicodePath = 108,
    Unextractable = 109,
    WildcardInName = 110,
    NameEncoding = 111,
    DamagedData = 112,
    DataElsewhere = 113,
    LeadingSlash = 114,
    EndRecordDiffers = 115,
    NoDeflateStream = 116,

    NoContentTypes = 201,
    MalformedContentTypes = 202,
    PartWithoutType = 203,
    IdleOverride = 204,
    NearMissOfType = 205,
    DocumentType = 206,
    UnreadableContentTypes = 207,
    UnexpectedTypesRoot = 208,
    IncompleteTypeRule = 209,

    NoPackageRelationships = 300,
    LastTargetMissing = 301,
    TargetMissing = 302,
    NoOfficeDocument = 303,
    LastIsExternal = 304,
    CaseVariant = 305,
    StrictDocument = 306,
    EmptyRelationships = 307,
    UnexpectedRelationshipsRoot = 308,

    DanglingTarget = 401,
    RepeatedType = 402,
    RepeatedId = 403,
    OddTarget = 404,
    UnknownType = 405,
    MalformedRelationships = 406,
    OtherResolution = 407,
    StrayRelationships = 408,
    IncompleteRelationship = 409,
    UnreachedEntry = 410,
    UnknownId = 411,

    MalformedPart = 501,
    NoCompoundFile = 502,
    InterleavedPart = 503,
    PartNotLookedAt = 504,
    PartDocumentType = 505,

    ImpossibleSize = 601,
    Overlap = 602,
    HighRatio = 603,
    ExternalTargets = 604,
    ActiveContent = 605,
    PathClimbs = 606,
    LoadedFromOutside = 607,
    TooManyEntries = 608,
    DeceptiveName = 609,

    UnknownNamespaces = 701,
    UnknownNames = 702,
};

// One of those that a finding sums up. As it stands in the package.
struct FindingItem {
    std::string entry = {};                   // an entry, or the part that has it; may be empty
    std::string name = {};                    // a type, a namespace, a name; may be empty
    std::optional<std::uint64_t> count = {};  // how often, where that is counted
};

// Texts of findings are Printable UTF-8; names and values are as they stand in the package.
struct Finding {
    FindingId id{};
    Severity severity{};
    Step step{};
    bool stopsOpening = false;            // this is why the package does not open
    std::string entry;                    // the entry or part that has it; may be empty
    std::string relationship;             // the Id of the relationship that has it; may be empty
    std::string target;                   // where that leads
    std::optional<std::uint64_t> offset;  // in the file
    std::optional<std::uint64_t> line;    // in the entry, from 1
    std::optional<std::uint64_t> column;  // in characters, from 1
    std::string cause;                    // one sentence
    std::string hint;                     // one sentence

    // What it sums up, where that was asked for, and how many there are. The cause names them all
    // or only some.
    std::vector<FindingItem> items;
    std::uint64_t itemCount = 0;
    bool namesAllItems = true;
};

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CHECK_FINDING_H_
