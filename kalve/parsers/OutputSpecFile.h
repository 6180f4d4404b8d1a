// The output-specification file. Events and processes are declared as they are read, structures and series at
// their closing brace, once all that is said of them has been collected and checked.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "kalve/foundations/Enumerations.h"
#include "kalve/parsers/ParseState.h"

/// What is kept of the structure of a class.
struct StructureOutput {
  enum Request : unsigned { CREATION, COMPONENT, ELEMENT, REQUEST_COUNT };

  Position where = {};
  std::string className = {};
  TimeType timeType = CLOCK;
  OutputMode mode = OM_APPEND;
  std::array<std::string, REQUEST_COUNT> files = {};  ///< "" for what is not asked for
};

/// Where a series goes in a database.
struct DatabaseOutput {
  enum class Statement { COPY, INSERT };

  Statement statement = Statement::COPY;
  std::string user = {};
  std::string name = {};
  std::string table = "default";
  std::string password = {};
};

/// What is kept of descriptors of a class.
struct SeriesOutput {
  struct Column {
    std::string descriptor;
    int precision;
  };
  struct Parameter {
    Position where;
    std::string ident1;
    std::string ident2;
  };

  Position where = {};
  std::string className = {};
  std::optional<std::string> file = {};
  OutputMode mode = OM_APPEND;
  std::optional<DatabaseOutput> database = {};
  Position dateWhere = {};
  TimeType timeType = CLOCK;
  AllOrEnd values = AOE_ALL;
  bool isNumbered = false;
  bool isRecorded = false;
  Position graphWhere = {};
  std::optional<GraphType> graph = {};  ///< none when the series is not drawn
  std::vector<Parameter> parameters = {};
  std::vector<Column> columns = {};
};

class OutputSpecFile : public ParseState {
 public:
  explicit OutputSpecFile(LexicalInputFile* file);

  // In what follows a name of a file is not empty. Classes of entities are known (UnknownClassName).
  void DeclareEvent(const Position& where, const std::string& className, TimeType timeType,
                    const std::string& file, OutputMode mode) const;
  void DeclareProcess(const Position& where, OutputSpecType type, const std::string& className,
                      TimeType timeType, const std::string& file, OutputMode mode) const;

  void BeginStructure(const StructureOutput& structure);
  /// Each request once; one at least.
  void AddRequest(const Position& where, StructureOutput::Request request, const std::string& file);
  void EndStructure() const;

  void BeginSeries(const Position& where, const std::string& className);
  // One place at most.
  void SetFile(const Position& where, const std::string& file, OutputMode mode);
  void BeginDatabase(const Position& where, DatabaseOutput::Statement statement);
  DatabaseOutput& Database() { return *mSeries.database; }
  /// User and name are there.
  void EndDatabase(const Position& where) const;
  // Each of these holds until the series gives it again.
  void SetDate(const Position& where, TimeType timeType);
  void SetValues(AllOrEnd values) { mSeries.values = values; }
  void SetNumbered() { mSeries.isNumbered = true; }
  void SetRecorded() { mSeries.isRecorded = true; }
  void SetPlotted(const Position& where, GraphType graph);
  /// The two texts as OutputFileMDescOS::AddParameterOS takes them.
  void AddParameter(const Position& where, const std::string& ident1, const std::string& ident2);
  /// Each descriptor once, with 0 to 99 decimals.
  void AddColumn(const Position& where, const std::string& descriptor, int precision);
  /// Declares the series: it is saved, recorded or plotted, has columns, and asks nothing of a database that
  /// this cannot do. A form of dates that a database does not take becomes CLOCK (BadSyntaxInDBOSFile).
  void EndSeries();

 private:
  void CheckClass(const Position& where, const std::string& className) const;
  std::string FileName(const Position& where, const std::string& text) const;
  void CheckHasNoPlace(const Position& where) const;
  void CheckSeries() const;
  void CheckParameters() const;
  void UseDatabaseDates();
  void DeclareInFile() const;
  void DeclareInDatabase() const;

  StructureOutput mStructure;
  SeriesOutput mSeries;
};
