#include "kalve/parsers/ParameterFile.h"

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/CoreTime.h"
#include "kalve/foundations/TraceSwitches.h"
#include "kalve/inputs/Parameter.h"
#include "kalve/inputs/ParserFunction.h"

ParameterFile::ParameterFile(LexicalInputFile* file) : ParseState(file, {&g_KV_TraceParsingP, NLp, TLp}) {}

namespace {

/// Makes the parameter of the given value, by the type of that.
struct Creation {
  const char* className;
  const char* name;
  const char* group;  ///< null for none

  void operator()(int value) const { Create(INT, {.intValue = value}); }
  void operator()(double value) const { Create(DOUBLE, {.doubleValue = value}); }
  void operator()(const std::string& value) const {
    std::string text = value;  // the parameter copies it
    Create(STRING, {.stringValue = text.data()});
  }
  void operator()(const WrittenDate& date) const {
    std::string fault = DateFault(date.day, date.month, date.year);
    if (fault.empty()) fault = TimeFault(date.time);
    if (!fault.empty()) {
      AnnounceFault(date.where, fault);
      BadDateParameterValue(className, name);
    }
    auto* const value = new Date(FullYear(date.year), IndexMonth(date.month.c_str()), date.day,
                                 date.time.hour, date.time.minute, date.time.second);
    Create(VOID, {.entityValue = reinterpret_cast<BasicEntity*>(value)});
  }

 private:
  void Create(ValueTypeId type, UnifiedValue value) const {
    if (group != nullptr)
      CreateParameter(type, className, name, value, group);
    else
      CreateParameter(type, className, name, value);
  }
};

}  // namespace

void ParameterFile::Create(const std::string& className, const std::string& name,
                           const GivenParameter& value) const {
  std::visit(Creation{className.c_str(), name.c_str(), mGroup ? mGroup->c_str() : nullptr}, value);
}
