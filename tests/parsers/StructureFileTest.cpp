// The structure file: entities, loops, values, and what is wrong in them.
#include "tests/parsers/FarmTest.h"

namespace {

using StructureFileTest = FarmTest;

TEST_F(StructureFileTest, BuildsWhatItReads) {
  Read(ParseStructureFile,
       "ENTITY Paddock far;\n"
       "SIMULATED ENTITY \"Farm\" farm {\n"
       "  ELEMENT Paddock;\n"
       "  ELEMENT Herd \"the herd\" {\n"
       "    ELEMENT Cow hortense { COMPONENT Udder udder; }\n"
       "    ELEMENT Cow \"ENTITY\";\n"
       "  }\n"
       "  ELEMENT REF far { area = 7; }\n"
       "  ENTITY Udder spare { }\n"
       "}\n"
       "ENTITY Cow violette;\n"
       "REF \"the herd\" { ELEMENT REF violette { COMPONENT REF spare; } }\n");
  EXPECT_EQ(Tree(pCurrentSim->SimulatedBasicEntity()),
            "farm(Paddock_3 the herd(hortense(udder) ENTITY(-) violette(spare)) far) ");
  EXPECT_EQ(pCurrentSim->SimulatedBasicEntity()->GetSimulation(), pCurrentSim);
  EXPECT_EQ(ValueText(*GetNamedEntity("far"), "area"), "7");
  Read(ParseStructureFile, "SIMULATED REF \"the herd\";");
  EXPECT_STREQ(pCurrentSim->SimulatedBasicEntity()->InstanceName(), "the herd");
}

TEST_F(StructureFileTest, RepeatsWhatStandsInLoops) {
  SetParameter(INT, "size", {.intValue = 2});
  Read(
      ParseStructureFile,
      "FOR h = 9 TO 10 {\n"
      "  ENTITY Herd herd[h] {\n"
      "    FOR c = 0 TO PARAM Herd size { ELEMENT Cow; FOR none = 1 TO -1 { ELEMENT Cow none[none]; } }\n"
      "    ELEMENT Cow \"old \"[h] { FOR u = -1 TO -1 { COMPONENT Udder; } }\n"
      "  }\n"
      "}\n"
      "ENTITY Herd herd { FOR c = 1 TO 2 { ELEMENT Cow cow[c]; } FOR d = 3 TO 3 { ELEMENT Cow cow[d]; } }\n");
  EXPECT_EQ(TreeOf("herd9"), "herd9(Cow_2(-) Cow_3(-) Cow_4(-) old 9(Udder_6)) ");
  EXPECT_EQ(TreeOf("herd10"), "herd10(Cow_8(-) Cow_9(-) Cow_10(-) old 10(Udder_12)) ");
  EXPECT_EQ(TreeOf("herd"), "herd(cow1(-) cow2(-) cow3(-)) ");
}

TEST_F(StructureFileTest, GivesValuesAndBodies) {
  char breed[] = "Salers";
  SetParameter(STRING, "breed", {.stringValue = breed});
  SetParameter(DOUBLE, "intake", {.doubleValue = 16.5});
  SetParameter(INT, "size", {.intValue = 42});
  Read(
      ParseStructureFile,
      "FOR b = 4 TO 4 {\n"
      "  ENTITY Bull bull {\n"
      "    anInt = b; aFloat = -3; aDouble = 2.5e1; aText = \"Bob \\\"\" b; anEntity = NEW Cow;\n"
      "    someEntities += NEW Udder; someEntities += NEW \"Cow\"; aDomain += [1, PARAM Herd size];\n"
      "    someInts += 5; someInts += PARAM Herd size; someFloats += 0.5; someDoubles += PARAM Herd intake;\n"
      "    BODY isReady = TRUE;\n"
      "  }\n"
      "}\n"
      "ENTITY Bull other { aText = PARAM Herd breed; aFloat = PARAM Herd intake; \"anInt\" = PARAM Herd size;\n"
      "                    BODY isReady = FALSE; }\n");
  Entity* const bull = GetNamedEntity("bull");
  const std::string expected[][2] = {{"anInt", "4"},
                                     {"aFloat", "-3"},
                                     {"aDouble", "25"},
                                     {"aText", "Bob \"4"},
                                     {"anEntity", "Cow_2"},
                                     {"someEntities", "Udder_3 Cow_4 "},
                                     {"someInts", "         5         42 "},
                                     {"someFloats", "   0.50000 "},
                                     {"someDoubles", "  16.50000 "}};
  for (const auto& e : expected) EXPECT_EQ(ValueText(*bull, e[0].c_str()), e[1]) << e[0];
  IntInterval* const interval =
      bull->GetIntDomainValue(bull->GetDescriptor("aDomain")->ClassSymbol())->front();
  EXPECT_EQ(interval->low, 1);
  EXPECT_EQ(interval->high, 42);
  delete interval;
  EXPECT_TRUE(bull->ExecPredicate(READY));
  Entity* const other = GetNamedEntity("other");
  EXPECT_EQ(ValueText(*other, "aText") + ValueText(*other, "aFloat") + ValueText(*other, "anInt"),
            "Salers16.542");
  EXPECT_FALSE(other->ExecPredicate(READY));
}

TEST_F(StructureFileTest, TakesBodiesOfTheApplication) {
  RegisterPredicateBody("isSecond", [](EntityMethod* method) {
    return std::string(method->DescribedEntity()->InstanceName()) == "bull2";
  });
  Read(ParseStructureFile, "FOR b = 1 TO 2 { ENTITY Bull bull[b] { BODY isReady = isSecond; } }");
  EXPECT_FALSE(GetNamedEntity("bull1")->ExecPredicate(READY));
  EXPECT_TRUE(GetNamedEntity("bull2")->ExecPredicate(READY));
}

TEST_F(StructureFileTest, GivesSelectionsAsValues) {
  char breed[] = "Salers ";
  SetParameter(STRING, "breed", {.stringValue = breed});
  AssignEnumToInt([](const char* name) { return std::string(name) == "BREED" ? 23 : K_INT_UNSIGNIFICANT; });
  Read(ParseStructureFile,
       "SPEC second OF Bull { WHERE STRING BREED IN \"Salers 2\"; }\n"
       "FOR b = 1 TO 3 { ENTITY Bull bull[b] { aText = PARAM Herd breed b; aSpec = SPEC second; } }\n");
  AssignEnumToInt(nullptr);
  EXPECT_EQ(Selected("second"), "bull2 ");
  for (const char* name : {"bull1", "bull3"}) {
    const Entity* const bull = GetNamedEntity(name);
    EXPECT_EQ(bull->GetEntitySpecValue(bull->GetDescriptor("aSpec")->ClassSymbol()),
              GetNamedEntitySpec("second"));
  }
}

TEST_F(StructureFileTest, SaysWhatIsWrong) {
  SetParameter(VOID, "turnout", {.entityValue = nullptr});
  char breed[] = "Salers";
  SetParameter(STRING, "breed", {.stringValue = breed});
  const std::string statement = "BODY, COMPONENT, ELEMENT, ENTITY, FOR, REF, SIMULATED, SPEC ou '}'";
  SetParameter(INT, "heads", {.intValue = 3});
  std::string deepLoops;
  for (int i = 0; i < 200; ++i) deepLoops += "FOR i = 1 TO 1 {\n";
  const FaultCase cases[] = {
      {"\nENTITY;", 2, "lu : ';' ; attendu : un nom ou un texte entre guillemets"},
      {"ENTITY Farm farm", 1, "lu : la fin du fichier ; attendu : ';', '{' ou '['"},
      {"ENTITY Farm farm {", 1, "lu : la fin du fichier ; attendu : '}' (accolade ouverte à la ligne 1)"},
      {"ENTITY Farm farm[3];", 1, "lu : '3' ; attendu : un nom"},
      {"ENTITY Bull { anInt += ;", 1, "lu : ';' ; attendu : un entier, un réel, NEW, PARAM ou '['"},
      {"ENTITY Bull { anInt = [1, 2]; }", 1,
       "lu : '[' ; attendu : un nom, un texte entre guillemets, un entier, un réel, NEW, PARAM ou SPEC"},
      {"ENTITY Bull { aText += \"Bob\"; }", 1,
       "lu : 'Bob' ; attendu : un entier, un réel, NEW, PARAM ou '['"},
      {"FOR c = 1.5 TO 3 { }", 1, "lu : '1.5' ; attendu : un entier ou PARAM"},
      {"ENTITY Farm { SIMULATED ELEMENT Herd; }", 1, "lu : 'ELEMENT' ; attendu : ENTITY ou REF"},
      {"\nELEMENT Cow;", 2, "ELEMENT doit se trouver dans le bloc d'une entité"},
      {"FOR i = 1 TO 0 { COMPONENT Udder; }", 1, "COMPONENT doit se trouver dans le bloc d'une entité"},
      {"ENTITY Farm;\nELEMENT REF Farm_1;", 2, "ELEMENT doit se trouver dans le bloc d'une entité"},
      {"ENTITY Bull { }\nanInt = 3;", 2, "'anInt' doit se trouver dans le bloc d'une entité"},
      {"BODY m = TRUE;", 1, "BODY doit se trouver dans le bloc d'une entité"},
      {"ENTITY Bull {\nBODY m = tired; }", 2, "BODY 'm' : prédicat inconnu 'tired'"},
      {"FOR i = 1 TO 2 {\nREF x; }", 2, "REF ne peut pas se trouver dans une boucle FOR"},
      {"FOR i = 1 TO 2 { SIMULATED ENTITY Farm; }", 1,
       "SIMULATED ne peut pas se trouver dans une boucle FOR"},
      {"SIMULATED ENTITY Farm;\nSIMULATED ENTITY Farm;", 2,
       "une autre entité est déjà l'entité simulée (SIMULATED)"},
      {"ENTITY Cow cow[i];", 1, "itérateur 'i' hors d'une boucle FOR"},
      {"ENTITY Bull { aText = Bob; }", 1, "itérateur 'Bob' hors d'une boucle FOR"},
      {"FOR i = 1 TO 2 {\nFOR j = 1 TO 2 { ENTITY Cow\ncow[i]; } }", 3,
       "itérateur 'i' : seul 'j', celui de la boucle la plus proche, est permis"},
      {"FOR i = 1 TO 2 { ENTITY Bull { aText = \"b\" k; } }", 1,
       "itérateur 'k' : seul 'i', celui de la boucle la plus proche, est permis"},
      {"FOR i = -3 TO 2 {\nENTITY Cow cow[i]; }", 2, "itérateur négatif dans un nom : i part de -3"},
      {"ENTITY Bull { anInt = PARAM Herd turnout; }", 1,
       "PARAM 'Herd' 'turnout' : une date n'est pas une valeur de descripteur"},
      {"ENTITY Bull {\nsomeInts += PARAM Herd breed; }", 2,
       "+= n'ajoute pas de texte (descripteur 'someInts')"},
      {"ENTITY Bull { anInt = PARAM Herd heads i; }", 1,
       "PARAM 'Herd' 'heads' : seul un texte prend un itérateur"},
      {"FOR i = 1 TO 2 {\nSPEC all OF Cow; }", 2, "SPEC ne peut pas se trouver dans une boucle FOR"},
      {"SPEC bulls OF Bull;\nENTITY Bull { anInt = SPEC bulls; }", 2,
       "descripteur 'anInt'\n!!! Affectation d'une valeur 'spécification d'entités' à un descripteur d'un autre type !!!"},
      {deepLoops, 101, "plus de 100 boucles FOR imbriquées"},
      {"ENTITY Bull {\naText = 12; }", 2,
       "descripteur 'aText'\n!!! Affectation d'une valeur entière à un descripteur non numérique"
       "\n    ou qui n'existe pas !!!"},
      {"ENTITY Bull {\nanInt = \"Bob\"; }", 2,
       "descripteur 'anInt'\n!!! Affectation d'une chaîne à un descripteur non String !!!"},
      {"ENTITY Bull {\nsomeInts = 3; }", 2,
       "descripteur 'someInts'\n!!! Affectation d'une valeur entière à un descripteur non numérique"
       "\n    ou qui n'existe pas !!!"},
      {"ENTITY Bull {\n\nlegs = 4.5; }", 3,
       "descripteur 'legs'\n!!! Affectation d'une valeur réelle à un descripteur non numérique"
       "\n    ou qui n'existe pas !!!"},
      {"ENTITY Bull {\nlegs = \"four\"; }", 2,
       "descripteur 'legs'\n!!! Affectation d'une chaîne à un descripteur non String !!!"},
      {"ENTITY Bull {\nlegs += 4; }", 2,
       "descripteur 'legs'\n!!! Ajout d'une valeur entière à un descripteur d'un autre type que INT_TAB !!!"},
      {"ENTITY Bull {\nFOR i = 5 TO 6 {\n  FOR j = 2 TO 9 { }\n  anEntity = \"Bob\"; } }", 4,
       "descripteur 'anEntity' (boucle FOR de la ligne 2, i = 5)"
       "\n!!! Affectation d'une chaîne à un descripteur non String !!!"},
  };
  for (const FaultCase& c : cases) ExpectFault(ParseStructureFile, c);
  const std::string output = ReadQuietly(ParseStructureFile, "ENTITY Farm farm { 3; }");
  EXPECT_NE(output.find("lu : '3' ; attendu : un nom, un texte entre guillemets, " + statement),
            std::string::npos)
      << output;
}

/// The failures of the kernel and of the application, each behind the line that led to it.
TEST_F(StructureFileTest, EndsInTheFailureMadeForTheFault) {
  const std::string unknown =
      "\n!!!============== UnknownClassName ==============\n!!! Le nom de classe 'Goat'";
  const FaultCase cases[] = {
      {"\nENTITY Goat;", 2, "ENTITY 'Goat' : classe d'entité inconnue" + unknown},
      {"ENTITY Farm {\nFOR g = 7 TO 8 {\nELEMENT Goat goat[g]; } }", 3,
       "ELEMENT 'Goat' 'goat'[g] (boucle FOR de la ligne 2, g = 7) : classe d'entité inconnue" + unknown},
      {"ENTITY Bull {\nanEntity = NEW Goat; }", 2,
       "descripteur 'anEntity' : classe d'entité inconnue" + unknown},
      {"ENTITY Cow cow {\nCOMPONENT Goat; }", 2, "COMPONENT 'Goat' : classe d'entité inconnue" + unknown},
      {"ENTITY Bull {\nsomeEntities += NEW Goat; }", 2,
       "descripteur 'someEntities' : classe d'entité inconnue" + unknown},
      // A class that the kernel knows, but of which the application makes no entity.
      {"ENTITY Farm {\nELEMENT FarmUnit unit; }", 2,
       "ELEMENT 'FarmUnit' 'unit' : classe d'entité inconnue"
       "\n!!!============== UnknownClassName ==============\n!!! Le nom de classe 'FarmUnit'"},
      {"ENTITY Herd herd {\nELEMENT Paddock; }", 2,
       "ELEMENT 'Paddock'\n!!!============== BadSubEntityClass =============="},
      {"ENTITY Herd herd {\nCOMPONENT Udder; }", 2,
       "COMPONENT 'Udder'\n!!!============== BadSubEntityClass =============="},
      {"ENTITY Cow cow; ENTITY Cow other {\nELEMENT REF cow; }", 2,
       "ELEMENT REF 'cow'\n!!!============== BadSuperSetClass =============="},
      {"ENTITY Cow cow { COMPONENT Udder udder; } ENTITY Cow other {\nCOMPONENT REF udder; }", 2,
       "COMPONENT REF 'udder'\n!!!============== ComponentPluggedElsewhere =============="},
      {"ENTITY Udder udder; ENTITY Cow cow {\nCOMPONENT REF udder;\nCOMPONENT REF udder; }", 3,
       "COMPONENT REF 'udder'\n!!!============== ComponentAlreadyPlugged =============="},
      {"ENTITY Cow cow {\nELEMENT Udder udder; }", 2,
       "ELEMENT 'Udder' 'udder'\n!!!============== BadSubEntityClass =============="},
      {"ENTITY Cow cow {\nCOMPONENT Udder;\nCOMPONENT Udder; }", 3,
       "COMPONENT 'Udder'\n!!!============== ComponentAlreadyPlugged =============="},
      {"ENTITY Cow cow {\nFOR u = 1 TO 2\n{\nCOMPONENT Udder udder[u]; } }", 4,
       "COMPONENT 'Udder' 'udder'[u] (boucle FOR de la ligne 2, u = 2)"
       "\n!!!============== ComponentAlreadyPlugged =============="},
      {"ENTITY Cow cow; ENTITY Cow other {\nCOMPONENT REF cow; }", 2,
       "COMPONENT REF 'cow'\n!!!============== BadSubEntityClass =============="},
      {"ENTITY Cow cow;\nREF bull;", 2,
       "REF 'bull' : aucune entité ne porte ce nom\n!!!============== UnfoundEntityBasedOnInstanceName "
       "=============="},
      {"ENTITY Bull {\naSpec = SPEC bulls; }\nSPEC bulls OF Bull;", 2,
       "SPEC 'bulls' : aucune sélection ne porte ce nom\n!!!============== UnknownClassName =============="},
      {"ENTITY Bull {\nanInt = 51; }", 2,
       "descripteur 'anInt'\n!!!============== OutOfIntDomain =============="},
      {"ENTITY Bull {\nFOR i = 50 TO 60\n{\nanInt = i; } }", 4,
       "descripteur 'anInt' (boucle FOR de la ligne 2, i = 51)"
       "\n!!!============== OutOfIntDomain =============="},
      {"ENTITY Bull {\naFloat = 20.1; }", 2,
       "descripteur 'aFloat'\n!!!============== OutOfFloatDomain =============="},
      {"ENTITY Bull {\nanEntity = NEW Udder; }", 2,
       "descripteur 'anEntity'\n!!!============== OutOfEntityDomain =============="},
      {"ENTITY Bull {\naDomain += [5, 4]; }", 2,
       "descripteur 'aDomain'\n!!!============== BadIntervalBounds =============="},
      {"ENTITY Bull {\nBODY isTired = TRUE; }", 2,
       "BODY 'isTired'\n!!! Indice hors tableau dans 'Entity::GetMethod' : indice -9"},
      {"FOR i = 1 TO\nPARAM Herd size { }", 2,
       "PARAM 'Herd' 'size'\n!!!============== InexistantTypedParameter =============="},
      {"ENTITY Bull { anInt = PARAM Herd size; }", 1,
       "PARAM 'Herd' 'size'\n!!!============== InexistantParameter =============="},
  };
  for (const FaultCase& c : cases) ExpectFailure(ParseStructureFile, c);
  // What fails later has no line in the file.
  Read(ParseStructureFile, "ENTITY Cow cow;");
  EXPECT_EQ(OutputOf([&] {
              const std::string failure = FailureOf([] { GetNamedEntity("cow")->GetComponent(UDDER); });
              std::printf("%s", failure.substr(0, 10).c_str());
            }),
            "\n!!!======");
}

TEST_F(StructureFileTest, NamesTheFilesThatLedToAFailure) {
  const std::string included = folder.Write("cows", "ELEMENT Cow cow;\n\nELEMENT Goat goat;");
  const std::string output = ReadQuietly(ParseStructureFile, "ENTITY Herd herd {\nINCLUDE \"cows\";\n}");
  EXPECT_EQ(output.find(Announced(included, 3, "ELEMENT 'Goat' 'goat' : classe d'entité inconnue") +
                        "\n    inclus par " + path + ", ligne 2\n!!!==="),
            0U)
      << output;
}

TEST_F(StructureFileTest, NeedsASimulation) {
  pCurrentSim = nullptr;
  EXPECT_NE(ReadQuietly(ParseStructureFile, "").find("SimulationNotYetCreated"), std::string::npos);
  pCurrentSim = &simulation;
}

TEST_F(StructureFileTest, TheDocumentedExampleStands) {
  SetParameter(INT, "size", {.intValue = 3});
  Read(ParseStructureFile, DocumentedExample("The structure file"));
  EXPECT_EQ(TreeOf("farm"),
            "farm(home river1 river2 herd(cow1(Udder_8) cow2(Udder_10) cow3(Udder_12) hortense(-)) common) ");
  EXPECT_EQ(ValueText(*GetNamedEntity("hortense"), "calvings"), "6");
}

TEST_F(StructureFileTest, MutatedFilesEndInOrder) {
  folder.Write("part", "# nothing\nEND INCLUDE;");
  const std::string example =
      "SPEC some OF Bull { INSTANTIATE; NFIRST 2; WHERE INT KV_ENTITY NOT_IN [2, 3], 5; WHERE STRING INT IN a; }\n"
      "ENTITY Bull barn { aSpec = SPEC some; aText = \"a\"; anInt = 3; someInts += 5; aDomain += [1, 2]; BODY isReady = TRUE; }\n"
      "SIMULATED ENTITY Farm farm {\n"
      "  FOR p = 1 TO 3 { ELEMENT Paddock paddock[p] { area = p; } }\n"
      "  INCLUDE \"part\";\n"
      "  ELEMENT Herd herd { FOR c = 1 TO 2 { ELEMENT Cow cow[c] { FOR u = 1 TO 1 { COMPONENT Udder; } } } }\n"
      "}\nREF \"farm\" { ELEMENT REF paddock1; }\n"
      "SPEC more OF Bull { REFERENT farm; WHERE anInt IN 3; WHERE ENTITY anEntity IN CLASS Cow; }\n";
  for (int i = 0; i < 300; ++i) ExpectOrderlyEnd(ParseStructureFile, Mutated(example));
  EXPECT_GT(faults, 50);
}

}  // namespace
