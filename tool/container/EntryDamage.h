// tool/container/EntryDamage.h - why the data of an entry cannot be had.
#ifndef VEXPA_TOOL_CONTAINER_ENTRYDAMAGE_H_
#define VEXPA_TOOL_CONTAINER_ENTRYDAMAGE_H_

#include "runtime/zip/EntryFormat.h"
#include "tool/container/Container.h"

namespace vexpa_tool {

enum class EntryDamage {
    None,
    OnOtherDisk,
    Encrypted,
    UnknownMethod,
    NoLocalHeader,   // where the directory says
    DataBeyondFile,  // the file ends before the data does
    ImpossibleSize,  // more than the data can hold
    BadData,         // it does not inflate
    WrongSize,       // it inflates to more or fewer bytes than claimed
    WrongCrc,
};

// The first reason there is. Reads the data, whose size a caller may want to look at first.
EntryDamage FindDamage(const Container& container, const ContainerEntry& entry);

// The same as far as it can be told without reading the data: None also for what is damaged inside.
EntryDamage FindHeaderDamage(const Container& container, const ContainerEntry& entry);

// More than the data can hold; the library refuses such an entry.
bool IsImpossibleSize(const ContainerEntry& entry);

using vexpa_runtime::zip::kDeflated;
using vexpa_runtime::zip::kStored;

}  // namespace vexpa_tool

#endif  // VEXPA_TOOL_CONTAINER_ENTRYDAMAGE_H_
