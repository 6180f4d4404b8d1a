// Failures of files, of the data and parameters that they hold, and of the texts that the parsers read.
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/inputs/File.h"

namespace {

/// The name that tells the modeller most: the full one, else the simple one.
const char* NameOf(const File* file) {
  if (file == nullptr) return "";
  return file->FullNameSpecified() != 0 ? file->GetFullName() : file->GetSimpleName();
}

/// A line for each file that led to this one by inclusion.
std::string Includers(const File* file) {
  std::string lines;
  if (file == nullptr || file->ClassType() != LEXICAL_INPUT_FILE) return lines;
  const auto* from = static_cast<const LexicalInputFile*>(file)->GetFileFrom();
  for (; from != nullptr; from = from->GetFileFrom())
    lines += Text("\n    inclus par %s, ligne %d", from->GetFullName(), from->GetCurrentRecordIndex());
  return lines;
}

}  // namespace

// Parameters -------------------------------------------------------------------------------------------

void InexistantTypedParameter(const char* className, const char* name, const char* type,
                              const char* operation) {
  ReportFailure("\n!!!============== InexistantTypedParameter ==============",
                "\n!!! Il n'existe pas de paramètre '%s %s' de type %s.\n    Opération en cours : '%s'.",
                OrEmpty(className), OrEmpty(name), OrEmpty(type), OrEmpty(operation));
}

void InexistantParameter(const char* className, const char* name) {
  ReportFailure("\n!!!============== InexistantParameter ==============",
                "\n!!! Il n'existe pas de paramètre '%s %s'.", OrEmpty(className), OrEmpty(name));
}

void BadDateParameterValue(const char* className, const char* name) {
  ReportFailure("\n!!!============== BadDateParameterValue ==============",
                "\n!!! La valeur du paramètre '%s %s' n'est pas une date correcte.", OrEmpty(className),
                OrEmpty(name));
}

// Files ------------------------------------------------------------------------------------------------

namespace {

constexpr const char* unknownFileClassSymbol = "\n!!!============== UnknownFileClassSymbol ==============";
constexpr const char* unknownFileClassBody =
    "\n!!! Aucun fichier de classe '%s' n'est connu avec le symbole %d.";
constexpr const char* badFileRead = "\n!!!============== BadFileRead ==============";
constexpr const char* badFileReadBody =
    "\n!!! erreur de lecture (fin inattendue, enregistrement erroné ou vide,...)\n    fichier : '%s'";

}  // namespace

void UnknownFileClassSymbol(const char* fileClass, int symbol) {
  ReportFailure(unknownFileClassSymbol, unknownFileClassBody, OrEmpty(fileClass), symbol);
}

void UnknownClassSymbol(const char* className, int symbol) {
  ReportFailure(unknownFileClassSymbol, unknownFileClassBody, OrEmpty(className), symbol);
}

void BadFileOpenMode(File* file, int mode) {
  ReportFailure("\n!!!============== BadFileOpenMode ==============",
                "\n!!! Type d'accès à un fichier incorrect : %d (1 en lecture, 2 en écriture)."
                "\n    symbole du fichier : %d",
                mode, file != nullptr ? file->ClassSymbol() : K_INT_UNSIGNIFICANT);
}

void BadFieldValueType(File* file, int field) {
  ReportFailure("\n!!!============== BadFieldValueType ==============",
                "\n!!! Le champ %d n'est pas du type de valeur demandé.\n    fichier : '%s'", field,
                NameOf(file));
}

void BadFileName(File* file, const char* name) {
  const char* shown = name != nullptr && *name != '\0' ? name : NameOf(file);
  ReportFailure("\n!!!============== BadFileName ==============",
                "\n!!! Impossible d'ouvrir le fichier '%s'.%s", shown, Includers(file).c_str());
}

void BadFileType(File* file, FileClassType type) {
  ReportFailure("\n!!!============== BadFileType ==============",
                "\n!!! Un fichier de données séquentiel ou factuel est attendu."
                "\n    fichier : '%s' de type %d",
                NameOf(file), type);
}

void BadSearchByFileId(int symbol) {
  ReportFailure("\n!!!============== BadSearchByFileId ==============",
                "\n!!! Aucun fichier ne possède le symbole %d.", symbol);
}

void BadFileRead(File* file) { ReportFailure(badFileRead, badFileReadBody, NameOf(file)); }

void BadReadFile(File* file) { ReportFailure(badFileRead, badFileReadBody, NameOf(file)); }

void VoidRecordInFactualDataFile(const char* fileName) {
  ReportFailure("\n!!!============== VoidRecordInFactualDataFile ==============",
                "\n!!! Enregistrement interne vide après lecture du fichier de faits '%s'."
                "\n    Revoir la fonction ReadNextEnrgt de ce fichier.",
                OrEmpty(fileName));
}

void UnexpectedEndInclude(const char* fileName) {
  ReportFailure("\n!!!============== UnexpectedEndInclude ==============",
                "\n!!! END INCLUDE sans inclusion en cours.\n    fichier : '%s'", OrEmpty(fileName));
}

void UnspecifiedInPath(const char* fileName) {
  ReportFailure("\n!!!============== UnspecifiedInPath ==============",
                "\n!!! Le fichier de données '%s' est donné par son nom simple,"
                "\n    alors que le répertoire des entrées n'est pas spécifié"
                "\n    (dans le fichier des paramètres de la simulation (IN_DIR <path>)"
                "\n    ou par pCurrentSim->SetInDir(<path>).",
                OrEmpty(fileName));
}

void UnspecifiedPath(int fileSymbol) {
  ReportFailure("\n!!!============== UnspecifiedPath ==============",
                "\n!!! Lecture d'un fichier de données (de symbole %d) sans nom complet,"
                "\n    ni chemin et nom simple.",
                fileSymbol);
}

// The output-specification file ------------------------------------------------------------------------

void BadSyntaxInOSFile(const char* read, const char* expected) {
  const std::string asked = *OrEmpty(expected) != '\0' ? Text("\n    attendu : %s", expected) : std::string();
  ReportFailure("\n!!!============== BadSyntaxInOSFile ==============",
                "\n!!! Erreur lors de la lecture du fichier de spécification des sorties\n!!! lu : %s%s",
                OrEmpty(read), asked.c_str());
}

void BadSyntaxInDBOSFile() {
  ReportWarning(
      "\n!!! Erreur lors de la lecture du fichier de spécification des sorties"
      "\n!!! Pour l'exportation vers une base de données, seuls les formats CLOCK et ISO_8601 sont "
      "autorisés."
      "\n!!! L'exécution continue avec l'option CLOCK.\n");
}
