// A data file as the simulation file declares it: its class, its names, its header lines and its formats.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "kalve/parsers/Faults.h"

class DataFileDeclaration {
 public:
  /// By the name or by the number that the application gave to this class of files.
  DataFileDeclaration(const Position& where, const std::string& className)
      : mWhere(where), mClassName(className) {}
  DataFileDeclaration(const Position& where, int symbol) : mWhere(where), mSymbol(symbol) {}

  const Position& Where() const { return mWhere; }
  /// As messages show it.
  std::string ShownClass() const;
  bool IsOf(const DataFileDeclaration& other) const {
    return mSymbol == other.mSymbol && mClassName == other.mClassName;
  }

  enum Part : unsigned { FULL_NAME, PATH, SIMPLE_NAME, FORMAT, KEY_FORMAT, DATA_FORMAT, PART_COUNT };
  /// Each part once; a full name excludes path and simple name, a whole format its two parts. A name is not
  /// empty.
  void Set(const Position& where, Part part, const std::string& text);
  /// At least 0, once.
  void SetCommentLines(const Position& where, int number);

  /// Asks the kernel, then the application for the file, and tells it what is declared. A simple name without
  /// a path, here or of the application, stands in the input directory of pCurrentSim (UnspecifiedInPath
  /// without one). UnknownClassName or UnknownClassSymbol when nobody makes the file, BadFileType for one
  /// that is neither sequential nor factual.
  void Apply() const;

 private:
  SerialDataFile* NewFile() const;
  void GiveNames(SerialDataFile* file) const;
  void GiveFormats(SerialDataFile* file) const;

  Position mWhere;
  std::string mClassName;  // empty when the class is a number
  std::optional<int> mSymbol;
  std::array<std::optional<std::string>, PART_COUNT> mParts;
  std::optional<int> mCommentLines;
};
