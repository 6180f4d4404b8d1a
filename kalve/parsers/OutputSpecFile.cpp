#include "kalve/parsers/OutputSpecFile.h"

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/Parameter.h"
#include "kalve/inputs/ParserFunction.h"
#include "kalve/model/MetaClass.h"
#include "kalve/outputs/OutputFileMDescOS.h"
#include "kalve/outputs/OutputSpec.h"
#include "kalve/outputs/PostgresqlMDescOS.h"
#include "kalve/parsers/Latin1.h"

OutputSpecFile::OutputSpecFile(LexicalInputFile* file)
    : ParseState(file, {&g_KV_TraceParsingO, NLo, TLo}, EndAsBadOutputSpecification) {}

namespace {

/// Failures of the kernel begin with the statement that they come from.
class StatementContext {
 public:
  StatementContext(const Position& where, const char* word, const std::string& name)
      : mContext([=, statement = word + (" " + Quoted(name))] { AnnounceFault(where, statement); }) {}

 private:
  FailureContext mContext;
};

}  // namespace

void OutputSpecFile::CheckClass(const Position& where, const std::string& className) const {
  if (GetClassSymbol(className.c_str()) >= 0) return;
  AnnounceFault(where, Quoted(className) + " : classe d'entité inconnue");
  UnknownClassName("OutputSpec_Parser", className.c_str());
}

/// As the file system has it: in the bytes of the file that names it.
std::string OutputSpecFile::FileName(const Position& where, const std::string& text) const {
  if (text.empty()) FaultInFile(where, "le nom du fichier de sortie est vide");
  return where.origin->isUtf8 ? Latin1ToUtf8(text) : text;
}

// Events and processes ---------------------------------------------------------------------------------

void OutputSpecFile::DeclareEvent(const Position& where, const std::string& className, TimeType timeType,
                                  const std::string& file, OutputMode mode) const {
  const std::string fileName = FileName(where, file);
  const StatementContext context(where, "EVENT", className);
  SetEventOutputSpec(className.c_str(), timeType, fileName.c_str(), mode);
}

void OutputSpecFile::DeclareProcess(const Position& where, OutputSpecType type, const std::string& className,
                                    TimeType timeType, const std::string& file, OutputMode mode) const {
  const std::string fileName = FileName(where, file);
  const StatementContext context(where, "PROCESS", className);
  SetProcessOutputSpec(type, className.c_str(), timeType, fileName.c_str(), mode);
}

// Structures -------------------------------------------------------------------------------------------

void OutputSpecFile::BeginStructure(const StructureOutput& structure) {
  CheckClass(structure.where, structure.className);
  mStructure = structure;
}

void OutputSpecFile::AddRequest(const Position& where, StructureOutput::Request request,
                                const std::string& file) {
  constexpr const char* words[] = {"CREATION", "COMPONENT", "ELEMENT"};
  static_assert(std::size(words) == StructureOutput::REQUEST_COUNT);
  if (!mStructure.files[request].empty())
    FaultInFile(where,
                Text("%s est donné deux fois pour %s", words[request], Quoted(mStructure.className).c_str()));
  mStructure.files[request] = FileName(where, file);
}

void OutputSpecFile::EndStructure() const {
  const auto& [where, className, timeType, mode, files] = mStructure;
  const auto& [creation, component, element] = files;
  if (creation.empty() && component.empty() && element.empty())
    FaultInFile(where, Text("STRUCTURE %s ne demande ni CREATION, ni COMPONENT, ni ELEMENT",
                            Quoted(className).c_str()));
  const StatementContext context(where, "STRUCTURE", className);
  SetEntityStructureOS(className.c_str(), timeType, creation.empty() ? 0 : 1, component.empty() ? 0 : 1,
                       element.empty() ? 0 : 1, creation.c_str(), component.c_str(), element.c_str(), mode);
}

// Series -----------------------------------------------------------------------------------------------

void OutputSpecFile::BeginSeries(const Position& where, const std::string& className) {
  CheckClass(where, className);
  mSeries = {.where = where, .className = className};
}

void OutputSpecFile::CheckHasNoPlace(const Position& where) const {
  if (mSeries.file || mSeries.database)
    FaultInFile(where, Text("SERIES %s va déjà dans un fichier ou une base de données",
                            Quoted(mSeries.className).c_str()));
}

void OutputSpecFile::SetFile(const Position& where, const std::string& file, OutputMode mode) {
  CheckHasNoPlace(where);
  mSeries.file = FileName(where, file);
  mSeries.mode = mode;
}

void OutputSpecFile::BeginDatabase(const Position& where, DatabaseOutput::Statement statement) {
  CheckHasNoPlace(where);
  mSeries.database = {.statement = statement};
}

void OutputSpecFile::EndDatabase(const Position& where) const {
  if (mSeries.database->user.empty() || mSeries.database->name.empty() || mSeries.database->table.empty())
    FaultInFile(where,
                "DATABASE demande un utilisateur (USER), un nom (NAME) et une table (TABLE) non vides");
}

void OutputSpecFile::SetDate(const Position& where, TimeType timeType) {
  mSeries.dateWhere = where;
  mSeries.timeType = timeType;
}

void OutputSpecFile::SetPlotted(const Position& where, GraphType graph) {
  mSeries.graphWhere = where;
  mSeries.graph = graph;
}

void OutputSpecFile::AddParameter(const Position& where, const std::string& ident1,
                                  const std::string& ident2) {
  mSeries.parameters.push_back({where, ident1, ident2});
}

void OutputSpecFile::AddColumn(const Position& where, const std::string& descriptor, int precision) {
  constexpr int mostDecimals = 99;
  if (precision < 0 || precision > mostDecimals)
    FaultInFile(where, Text("%d décimales pour %s : de 0 à %d sont attendues", precision,
                            Quoted(descriptor).c_str(), mostDecimals));
  for (const SeriesOutput::Column& column : mSeries.columns)
    if (column.descriptor == descriptor)
      FaultInFile(where, Text("le descripteur %s est donné deux fois", Quoted(descriptor).c_str()));
  mSeries.columns.push_back({descriptor, precision});
}

void OutputSpecFile::EndSeries() {
  CheckSeries();
  CheckParameters();
  const StatementContext context(mSeries.where, "SERIES", mSeries.className);
  if (mSeries.database) {
    UseDatabaseDates();
    DeclareInDatabase();
  } else {
    DeclareInFile();
  }
}

void OutputSpecFile::CheckSeries() const {
  const std::string shown = "SERIES " + Quoted(mSeries.className);
  if (mSeries.columns.empty()) FaultInFile(mSeries.where, shown + " ne donne aucun descripteur");
  if (mSeries.database && mSeries.graph)
    FaultInFile(mSeries.graphWhere, "PLOTTED : une série qui va dans une base de données ne se trace pas");
  if (!mSeries.file && !mSeries.database && !mSeries.isRecorded && !mSeries.graph)
    FaultInFile(mSeries.where, shown + " n'a ni FILE, ni DATABASE, ni RECORDED, ni PLOTTED");
}

/// The parameters of the run have been read before, as a rule; a missing one would end the run at the dump.
void OutputSpecFile::CheckParameters() const {
  for (const auto& [where, ident1, ident2] : mSeries.parameters) {
    if (!mSeries.file)
      FaultInFile(where, "PARAMETER : les paramètres ne s'écrivent que dans un fichier (FILE)");
    if (ident1 == "ALL" || ident1 == "GROUP") continue;
    const FailureContext context([&at = where] { AnnounceFault(at, "PARAMETER"); });
    GetParameter(ident1.c_str(), ident2.c_str());
  }
}

void OutputSpecFile::UseDatabaseDates() {
  if (mSeries.timeType == CLOCK || mSeries.timeType == ISO_8601) return;
  if (g_KV_TraceWarnings != 0) AnnounceFault(mSeries.dateWhere, "DATE");
  BadSyntaxInDBOSFile();
  mSeries.timeType = CLOCK;
}

namespace {

void Register(MultipleDescriptorOS& writer, const SeriesOutput& series) {
  writer.RegisterEntityOS(series.className.c_str());
  for (const SeriesOutput::Column& column : series.columns)
    writer.AddDescriptorOS(column.descriptor.c_str(), column.precision);
  writer.SetIsNumIdentified(series.isNumbered ? 1 : 0);
}

}  // namespace

// The specification of the class owns the writer once it is registered.

void OutputSpecFile::DeclareInFile() const {
  auto* const writer =
      new OutputFileMDescOS(mSeries.timeType, mSeries.graph ? 1 : 0, mSeries.isRecorded ? 1 : 0,
                            mSeries.file ? 1 : 0, mSeries.graph.value_or(GRAPH_POINT), mSeries.values);
  Register(*writer, mSeries);
  writer->ConfigureOutputFile(mSeries.file.value_or("").c_str(), mSeries.mode);
  for (const SeriesOutput::Parameter& parameter : mSeries.parameters)
    writer->AddParameterOS(parameter.ident1.c_str(), parameter.ident2.c_str());
}

void OutputSpecFile::DeclareInDatabase() const {
  using Statement = DatabaseOutput::Statement;
  const DatabaseOutput& database = *mSeries.database;
  const int isRecorded = mSeries.isRecorded ? 1 : 0;
  DatabaseMDescOS* writer = nullptr;
  if (database.statement == Statement::COPY)
    writer = new PostgresqlMDescOS(0, isRecorded, 1);
  else
    writer = new AltPostgresqlMDescOS(0, isRecorded, 1);
  writer->SetTimeType(mSeries.timeType);
  writer->SetAllOrFinal(mSeries.values);
  Register(*writer, mSeries);
  writer->ConfigureDatabase(database.user.c_str(), database.name.c_str(), database.table.c_str(),
                            database.password.c_str());
}
