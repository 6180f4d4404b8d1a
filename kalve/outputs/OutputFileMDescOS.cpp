#include "kalve/outputs/OutputFileMDescOS.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "kalve/engine/Simulation.h"
#include "kalve/foundations/CoreSimTime.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/inputs/Parameter.h"
#include "kalve/outputs/OutputSpec.h"
#include "kalve/outputs/OutputText.h"
#include "kalve/outputs/SeriesWalk.h"

OutputFileMDescOS::OutputFileMDescOS(TimeType timeType, int isPlotted, int isRecorded, int isSaved,
                                     GraphType graphType, AllOrEnd allOrFinal)
    : MultipleDescriptorOS(timeType, isPlotted, isRecorded, isSaved, allOrFinal), mGraphType(graphType) {
  SetSubClass(textFile);
}

OutputFileMDescOS::~OutputFileMDescOS() {
  for (ParameterOS* parameter : mParametersData) delete parameter;
}

void OutputFileMDescOS::ConfigureOutputFile(const char* name, OutputMode mode) {
  mOutputFile = NewOutputFileIfNamed(name, mode);
}

void OutputFileMDescOS::AddParameterOS(const char* ident1, const char* ident2) {
  for (const ParameterOS* known : mParametersData)
    if (std::strcmp(known->GetIdent1(), ident1) == 0 && std::strcmp(known->GetIdent2(), ident2) == 0) return;
  mParametersData.push_back(new ParameterOS(ident1, ident2));
}

// Parameters ----------------------------------------------------------------------------------------------

namespace {

std::optional<std::string> ValueText(const Parameter& parameter) {
  if (parameter.ValueType() == INT)
    return Text("%d", static_cast<const IntParameter&>(parameter).GetIntValue());
  if (parameter.ValueType() == DOUBLE)
    return Text("%f", static_cast<const RealParameter&>(parameter).GetRealValue());
  if (parameter.ValueType() == STRING)
    return Text("'%s'", static_cast<const StringParameter&>(parameter).GetStringValue());
  return std::nullopt;
}

/// Nothing for a date.
void WriteParameter(OutputText& out, const Parameter& parameter) {
  const std::optional<std::string> value = ValueText(parameter);
  if (!value) return;
  out.Line() += Text("#\"%s\" \"%s\" = ", parameter.EntityClassName(), parameter.DescriptorName()) + *value;
  out.EndLine();
}

void WriteParameters(OutputText& out, const ParameterOS& asked) {
  const std::string kind = asked.GetIdent1();
  if (kind != "ALL" && kind != "GROUP")
    return WriteParameter(out, *GetParameter(asked.GetIdent1(), asked.GetIdent2()));
  for (const Parameter* parameter : Parameter::mpInstanceTab) {
    const char* const group = parameter->Group();
    if (kind == "ALL" || (group != nullptr && std::strcmp(group, asked.GetIdent2()) == 0))
      WriteParameter(out, *parameter);
  }
}

// Names ---------------------------------------------------------------------------------------------------

/// What opens the lines: the number of the simulation when it is asked for, and a name in a fixed width.
class NameField {
 public:
  explicit NameField(const MultipleDescriptorOS& writer) : mIsNumbered(writer.GetIsNumIdentified() != 0) {
    const EntityOutputSpec& spec = *writer.GetEntityOutputSpec();
    mWidth = std::strlen(spec.TargetClassName());
    for (const EntityInstanceOS* instance : spec.GetInstancesData())
      mWidth = std::max(mWidth, std::strlen(instance->GetEntityInstanceName()));
    if (mIsNumbered) mNumber = Text("%7d ", pCurrentSim->GetNumId());
  }

  std::string OfHeader(const char* className) const {
    return (mIsNumbered ? "sim_idn " : "") + Wide(className);
  }
  std::string OfLine(const char* instanceName) const { return mNumber + Wide(instanceName); }

 private:
  std::string Wide(std::string name) const {
    name.resize(std::max(name.size(), mWidth), ' ');
    return name;
  }

  bool mIsNumbered;
  std::size_t mWidth;
  std::string mNumber;
};

const char* DateTitle(TimeType type) {
  switch (type) {
    case CLOCK:
      return "\tclock";
    case MIN_HOUR_YEARDAY:
      return "\tmin\thour\tjulian";
    case YEARDAY_HOUR_MIN:
      return "\tjulian\thour\tmin";
    case SIMDAY_HOUR_MIN:
      return "\tdayFrom1\thour\tmin";
    case HOUR_DAY_MONTH:
      return "\thour\tday\tmonth";
    case DAY_MONTH_YEAR:
      return "\tday\tmonth\tyear";
    case ISO_8601:
      break;
  }
  return nullptr;  // the header then has no opening
}

void WriteHeader(OutputText& out, const MultipleDescriptorOS& writer, const NameField& names,
                 const SeriesWalk& walk) {
  constexpr std::size_t longestName = 7;
  std::string& line = out.Line();
  if (const char* const title = DateTitle(writer.GetTimeType()))
    line += "#" + names.OfHeader(writer.GetEntityOutputSpec()->TargetClassName()) + title;
  for (const SeriesWalk::Column& column : walk.Columns())
    line += "\t" + std::string(column.descriptor->GetDescName()).substr(0, longestName);
  out.EndLine();
}

// Instances -----------------------------------------------------------------------------------------------

/// The texts of the columns are kept from row to row: most columns of a row repeat theirs.
void WriteInstance(OutputText& out, SeriesWalk& walk, const std::string& nameField, TimeType timeType,
                   std::vector<std::string>& shown) {
  std::fill(shown.begin(), shown.end(), "\t_");
  bool isEmpty = true;
  while (walk.NextRow()) {
    std::string& line = out.Line();
    line += nameField;
    AppendDateFromClock(line, walk.Clock(), timeType);
    for (std::size_t column = 0; column < shown.size(); ++column) {
      std::string& text = shown[column];
      if (walk.IsNew(column)) {
        text.resize(1);
        AppendValue(text, walk.Item(column), walk.Columns()[column].precision);
      }
      line += text;
    }
    out.EndLine();
    isEmpty = false;
  }
  if (!isEmpty) out.EndLine();
}

}  // namespace

void OutputFileMDescOS::DisplayTimeSeries() {
  if (!HasInstances()) return;
  OutputText out(mOutputFile);
  for (const ParameterOS* parameter : mParametersData) WriteParameters(out, *parameter);
  const NameField names(*this);
  SeriesWalk walk(*this);
  WriteHeader(out, *this, names, walk);
  std::vector<std::string> shown(walk.Columns().size());
  for (const EntityInstanceOS* instance : GetEntityOutputSpec()->GetInstancesData()) {
    walk.Enter(*instance);
    WriteInstance(out, walk, names.OfLine(instance->GetEntityInstanceName()), GetTimeType(), shown);
  }
}
