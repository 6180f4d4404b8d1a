// A folder for the files that a test writes; it goes with the object. A failure in a child leaves it to the
// parent.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kalve-XXXXXX").string();
    mPath = mkdtemp(pattern.data());
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() { std::filesystem::remove_all(mPath); }

  std::string Path(const std::string& name) const { return mPath + "/" + name; }

  /// Writes the bytes, folders in the name included, and answers the full name.
  std::string Write(const std::string& name, const std::string& bytes) const {
    std::string path = Path(name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

 private:
  std::string mPath;
};
