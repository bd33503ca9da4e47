// vexpa/base/Export.h - marks what leaves the shared library.
#ifndef VEXPA_BASE_EXPORT_H_
#define VEXPA_BASE_EXPORT_H_

// Everything else is hidden; abi/vexpa.map lists the symbols once more by version.
#define VEXPA_API __attribute__((visibility("default")))

#endif  // VEXPA_BASE_EXPORT_H_
