// A model whose outputs go to a folder of their own.
#pragma once

#include <fstream>
#include <iterator>
#include <vector>

#include "kalve/descriptors/EntityDescriptors.h"
#include "kalve/descriptors/ScalarDescriptors.h"
#include "kalve/inputs/DataFiles.h"
#include "kalve/inputs/OutputFile.h"
#include "kalve/outputs/OutputFileMDescOS.h"
#include "kalve/outputs/OutputSpec.h"
#include "tests/model/ModelTest.h"
#include "tests/support/TemporaryFolder.h"

class OutputTest : public ModelTest {
 protected:
  OutputTest() { simulation.SetOutDir(folder.Path("").c_str()); }
  ~OutputTest() override {
    DeleteOutputSpecs();
    DeleteFileInstances();
  }

  std::string Content(const char* name) const {
    std::ifstream file(folder.Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  /// A text writer that saves to "series.txt".
  static OutputFileMDescOS* NewWriter(const char* className, AllOrEnd allOrEnd = AOE_ALL,
                                      TimeType timeType = CLOCK, OutputMode mode = OM_OVERWRITE) {
    // Never freed: all writers stay reachable where a failure ends the process.
    static auto* const writers = new std::vector<OutputFileMDescOS*>();
    auto* const writer =
        writers->emplace_back(new OutputFileMDescOS(timeType, 0, 0, 1, GRAPH_LINE, allOrEnd));
    writer->RegisterEntityOS(className);
    writer->ConfigureOutputFile("series.txt", mode);
    return writer;
  }

  template <class Class>
  static Class& Give(Thing* entity, int id, const char* name) {
    auto* const descriptor = new Class(id, name);
    if constexpr (Class::branch == CONSTANT)
      entity->AddConstantDescriptor(descriptor);
    else
      entity->AddVariableDescriptor(descriptor);
    return *descriptor;
  }
  template <class Class, class Value>
  void SetAt(int clock, Class& descriptor, Value value) {
    simulation.Clock(clock);
    descriptor.SetValue(value);
  }

  TemporaryFolder folder;
};
