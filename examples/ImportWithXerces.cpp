// Imports the main part of a document with Xerces-C++: ImportWithXerces FILE

#include "examples/XercesImporter.h"
#include "examples/importer/RunImport.h"

int main(int argc, char** argv) {
    importer::XercesImporter xerces;
    return importer::RunImport(xerces, argc, argv);
}
