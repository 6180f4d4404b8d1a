// Names, streams and instances of files, and the texts of their failures.
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Records.h"
#include "kalve/inputs/File.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"

namespace {

TEST(File, PutsPathAndSimpleNameTogetherAsTheyStand) {
  struct Case {
    const char* full;
    const char* path;
    const char* simple;
    const char* fullAfterwards;
    const char* fileName;  // null for none
  };
  const Case cases[] = {
      {"", "/a/", "b", "/a/b", "/a/b"}, {"", "/a", "b", "/ab", "/ab"}, {"x", "/a/", "", "x", "x"},
      {"", "/a/", "", "", nullptr},     {"", "", "b", "", nullptr},    {"x", "/a/", "b", "/a/b", "/a/b"},
  };
  for (const Case& c : cases) {
    for (const bool pathFirst : {true, false}) {
      File file;
      file.AssignFullName(c.full);
      if (pathFirst && *c.path != '\0') file.AssignPhysicalPath(c.path);
      if (*c.simple != '\0') file.AssignSimpleName(c.simple);
      if (!pathFirst && *c.path != '\0') file.AssignPhysicalPath(c.path);
      EXPECT_STREQ(file.GetFullName(), c.fullAfterwards);
      const std::unique_ptr<char, decltype(&std::free)> name(file.GetFileName(), std::free);
      EXPECT_EQ(file.FileNameSpecified() != 0, c.fileName != nullptr);
      EXPECT_STREQ(name.get(), c.fileName);
    }
  }
}

TEST(File, OpensByAccessAndMode) {
  TemporaryFolder folder;
  const std::string path = folder.Write("log.txt", "old ");
  const auto writeNew = [&](OutputMode mode) {
    File file(9, WRITE_ACCESS, mode);
    file.AssignFullName(path.c_str());
    file.Open();
    std::fputs("new ", file.GetPhysicalFile());
    file.Close();
    file.Close();
    LexicalInputFile input;
    input.AssignFullName(path.c_str());
    input.Open();
    char text[50] = "";
    EXPECT_NE(std::fgets(text, sizeof text, input.GetPhysicalFile()), nullptr);
    return std::string(text);
  };
  EXPECT_EQ(writeNew(OM_APPEND), "old new ");
  EXPECT_EQ(writeNew(OM_OVERWRITE), "new ");
}

TEST(File, IsFoundByTheSymbolOfTheOldest) {
  const int before = File::mpInstanceTab.size();
  {
    File first(30, READ_ACCESS, OM_APPEND);
    File second(30, WRITE_ACCESS, OM_APPEND);
    EXPECT_EQ(File::GetFile(30), &first);
    File::mpInstanceTab.remove_first(&first);
    EXPECT_EQ(File::GetFile(30), &second);
  }
  EXPECT_EQ(File::mpInstanceTab.size(), before);
}

TEST(File, FailsInWords) {
  File file(4, READ_ACCESS, OM_APPEND);
  file.AssignSimpleName("prices.txt");
  struct Case {
    std::function<void()> attempt;
    const char* text;
  };
  const Case cases[] = {
      {[] { File bad(4, static_cast<AccesTypeId>(3), OM_APPEND); },
       "\n!!!============== BadFileOpenMode =============="
       "\n!!! Type d'accès à un fichier incorrect : 3 (1 en lecture, 2 en écriture)."
       "\n    symbole du fichier : 4\n"},
      {[&] { file.Open(); },
       "\n!!!============== BadFileName =============="
       "\n!!! Impossible d'ouvrir le fichier 'prices.txt'.\n"},
      {[] { File::GetFile(77); },
       "\n!!!============== BadSearchByFileId =============="
       "\n!!! Aucun fichier ne possède le symbole 77.\n"},
      {[&] { BadReadFile(&file); },
       "\n!!!============== BadFileRead =============="
       "\n!!! erreur de lecture (fin inattendue, enregistrement erroné ou vide,...)"
       "\n    fichier : 'prices.txt'\n"},
      {[] { UnknownClassSymbol("SequentialDataFile", 8); },
       "\n!!!============== UnknownFileClassSymbol =============="
       "\n!!! Aucun fichier de classe 'SequentialDataFile' n'est connu avec le symbole 8.\n"},
      {[] {
         File other;
         File::mpInstanceTab.remove_first(&other);
         File::RemoveInstance(&other);
       },
       "\n!!!============== InexistantInstance =============="
       "\n!!! Référence à une instance inexistante dans une opération 'File::RemoveInstance'."
       "\n    Vérifier que deux classes ne possèdent pas le même symbole"
       "\n    (notamment entre couches génériques et couches applicatives).\n"},
  };
  for (const Case& c : cases) EXPECT_EQ(FailureOf(c.attempt), c.text);
}

TEST(File, ShowsItself) {
  File file(4, READ_ACCESS, OM_APPEND);
  file.AssignFullName("prices.txt");
  EXPECT_EQ(
      OutputOf([&] { file.DisplayNames(); }),
      Text("\nFile '%x :\n\tpath       : \n\tsimpleName : \n\tfullName   : prices.txt\n", Address32(&file)));
  EXPECT_EQ(OutputOf([&] { file.Display(); }),
            "\n   -------------------------------\n  .Nom fichier  : prices.txt\n  .Mode ouvert. : lecture"
            "\n  .Etat fichier : fermé\n   -------------------------------");
}

}  // namespace
