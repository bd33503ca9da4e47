// examples/importer/PartStream.h - the bytes of a package's main part.
#ifndef VEXPA_EXAMPLES_IMPORTER_PARTSTREAM_H_
#define VEXPA_EXAMPLES_IMPORTER_PARTSTREAM_H_

#include <cstddef>
#include <filesystem>

#include "vexpa/base/ComPtr.h"
#include "vexpa/opc/Package.h"
#include "vexpa/platform/Com.h"

namespace importer {

// The part's bytes, from the start. Throws an ImportError.
tarn::ComPtr<IStream> OpenStream(tarn::opc::Part& part);

// The same for the part that the office-document relationship leads to.
tarn::ComPtr<IStream> OpenMainPart(const std::filesystem::path& file);

// The next bytes: as many as wanted, fewer at the end of the stream only, where QIODevice
// and its readers would take a short read for the end. Throws an ImportError.
std::size_t ReadBytes(IStream& stream, void* bytes, std::size_t wanted);

}  // namespace importer

#endif  // VEXPA_EXAMPLES_IMPORTER_PARTSTREAM_H_
