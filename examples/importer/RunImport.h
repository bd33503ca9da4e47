// examples/importer/RunImport.h - the command line of the importers.
#ifndef VEXPA_EXAMPLES_IMPORTER_RUNIMPORT_H_
#define VEXPA_EXAMPLES_IMPORTER_RUNIMPORT_H_

#include "examples/importer/Importer.h"

namespace importer {

// FILE: imports the main part of the package and says what is in its tree. The exit status.
int RunImport(Importer& importer, int argc, char** argv);

}  // namespace importer

#endif  // VEXPA_EXAMPLES_IMPORTER_RUNIMPORT_H_
