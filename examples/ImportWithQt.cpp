// Imports the main part of a document with QXmlStreamReader: ImportWithQt FILE

#include "examples/QtImporter.h"
#include "examples/importer/RunImport.h"

int main(int argc, char** argv) {
    importer::QtImporter qt;
    return importer::RunImport(qt, argc, argv);
}
