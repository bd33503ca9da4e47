// VX112, VX501, VX502, VX504, VX505 and VX7xx: what is inside the parts.

#include <optional>
#include <string>
#include <string_view>

#include "runtime/zip/EntryFormat.h"
#include "tool/check/EntryFaults.h"
#include "tool/check/FileKind.h"
#include "tool/check/Groups.h"
#include "tool/check/PartBytes.h"
#include "tool/check/PartNames.h"
#include "tool/check/RelationshipUses.h"
#include "tool/check/VocabularyCounts.h"
#include "tool/run/Interrupt.h"
#include "tool/text/Size.h"
#include "tool/text/Unicode.h"

namespace vexpa_tool {

namespace opc = tarn::opc;

namespace {

constexpr std::size_t kSignatureSize = 8;

// An archive whose entries share no bytes unpacks to no more than kBestRatio for each of its bytes.
using vexpa_runtime::zip::kBestRatio;
constexpr std::uint64_t kSlack = 1 << 20;

bool SaysXml(std::string_view contentType) {
    const std::string type = FoldedCase(contentType.substr(0, contentType.find(';')));
    return type == "application/xml" || type == "text/xml" || type.ends_with("+xml");
}

bool SaysStorage(std::string_view contentType) {
    return contentType == "application/vnd.openxmlformats-officedocument.oleObject" ||
           contentType == "application/vnd.ms-office.vbaProject";
}

class PartData {
public:
    PartData(const Subject& subject, Findings& findings)
        : subject_(subject),
          findings_(findings),
          bytes_(subject),
          left_(subject.container->FileSize() * kBestRatio + kSlack) {
        if (subject.options.vocabulary != nullptr) names_.emplace(*subject.options.vocabulary);
    }

    void Look(const ContainerEntry& entry) {
        if (entry.name.ends_with('/') || subject_.Find(entry.name) != &entry) return;
        // What the headers tell is told of already.
        if (FindHeaderDamage(*subject_.container, entry) != EntryDamage::None) return;
        const std::string name(entry.name);
        if (entry.size > subject_.options.largestPart) return ReportTooLarge(entry);
        if (entry.size > left_) return ReportTooMuch(entry);
        left_ -= entry.size;
        opc::Part* part = bytes_.Find(name);
        if (part == nullptr) return;
        Read(*part, name);
    }

    void Report() {
        if (names_) names_->Report(findings_);
    }

private:
    void Read(opc::Part& part, const std::string& name) {
        const std::string type = ToUtf8(tarn::CopyText(part.GetContentType()));
        // Content types and relationship streams are told of with the steps that read them.
        const bool isXml = SaysXml(type) && name != kContentTypesEntry && !SourceOf(name);
        RelationshipUses uses(part, name);
        XmlScan xml(XmlScan::Names::Resolved, [&](const XmlStartTag& tag) {
            uses.Look(tag, findings_);
            if (names_) names_->Count(tag);
        });
        std::string start;
        const bool isRead = bytes_.Read(part, [&](std::string_view piece) {
            StopIfInterrupted();
            if (start.size() < kSignatureSize) start += piece.substr(0, kSignatureSize);
            if (isXml) xml.Feed(piece);
        });
        if (!isRead) return ReportDamage(name);
        if (isXml) CheckXml(name, start.empty(), xml);
        if (SaysStorage(type) || LooksLikeCompoundFile(start)) CheckStorage(part, name, start);
    }

    void CheckXml(const std::string& name, bool isEmpty, XmlScan& xml) {
        const std::optional<XmlFault> fault = xml.Finish();
        const bool isBomb = fault && fault->isRefusal && xml.HasDocumentType();
        if (xml.HasDocumentType()) {
            findings_.Add(FindingId::PartDocumentType, [&](Finding& finding) {
                finding.entry = name;
                finding.cause = "has a document type declaration" + (isBomb ? "; " + fault->what : "");
            });
        }
        if (!fault || isBomb) return;
        findings_.Add(fault->isRefusal ? FindingId::PartNotLookedAt : FindingId::MalformedPart,
                      [&](Finding& finding) {
                          ExplainFault(name, isEmpty ? std::string_view() : "-", fault, finding);
                      });
    }

    void CheckStorage(opc::Part& part, const std::string& name, const std::string& start) {
        if (bytes_.IsStorage(part)) return;
        findings_.Add(FindingId::NoCompoundFile, [&](Finding& finding) {
            finding.entry = name;
            finding.cause = LooksLikeCompoundFile(start)
                                ? "begins like a compound file, but cannot be opened as one"
                                : "should be a compound file by its content type, but is none";
        });
    }

    void ReportDamage(const std::string& name) {
        findings_.Add(FindingId::DamagedData,
                      [&](Finding& finding) { ExplainUnreadable(subject_, name, finding); });
    }

    void ReportTooLarge(const ContainerEntry& entry) {
        findings_.Add(FindingId::PartNotLookedAt, [&](Finding& finding) {
            finding.entry = entry.name;
            finding.cause = "was not read: " + GroupedDigits(entry.size) +
                            " bytes are more than the limit of " +
                            GroupedDigits(subject_.options.largestPart);
        });
    }

    void ReportTooMuch(const ContainerEntry& entry) {
        findings_.Add(FindingId::PartNotLookedAt, [&](Finding& finding) {
            finding.entry = entry.name;
            finding.cause = "was not read: the parts before it unpack to more than the file can hold";
        });
    }

    const Subject& subject_;
    Findings& findings_;
    PartBytes bytes_;
    std::uint64_t left_;  // bytes to be read
    std::optional<VocabularyCounts> names_;
};

}  // namespace

void CheckPartData(const Subject& subject, Findings& findings) {
    if (!subject.HasDirectory() || subject.model == nullptr) return;
    PartData data(subject, findings);
    for (const ContainerEntry& entry : subject.container->Entries()) data.Look(entry);
    data.Report();
}

}  // namespace vexpa_tool
