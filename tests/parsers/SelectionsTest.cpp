// Selections, as the structure file and the directive file have them.
#include "tests/parsers/FarmTest.h"

namespace {

class SelectionsTest : public FarmTest {
 protected:
  SelectionsTest() {
    AssignEnumToInt([](const char* name) {
      const std::string text = name;
      if (text == "AN_INT") return 20;
      if (text == "A_DOUBLE") return 22;
      return text == "A_TEXT" ? 23 : K_INT_UNSIGNIFICANT;
    });
  }
  ~SelectionsTest() override {
    AssignEnumToInt(nullptr);
    Assign_App_NewEntitySpecFromStringFunction(nullptr);
    Assign_App_NewDescValueSpecFromStringFunction(nullptr);
  }

  /// bull1 to bull9: anInt 1 to 9, aFloat and aDouble half of it, aText "b1" to "b9"; of bull1 and bull3 a
  /// mate.
  void ReadBulls() {
    Read(ParseStructureFile,
         "ENTITY Cow hortense;\n"
         "FOR b = 1 TO 9 { ENTITY Bull bull[b] { anInt = b; aText = \"b\" b; } }\n"
         "REF bull1 { aFloat = 0.5; aDouble = 0.5; }\n"
         "REF bull3 { aFloat = 1.5; aDouble = 1.5; anEntity = NEW Cow; }\n");
    GetNamedEntity("bull1")->SetEntityValue(24, GetNamedEntity("hortense"));
  }
};

TEST_F(SelectionsTest, SelectsByConditions) {
  ReadBulls();
  const std::string cases[][2] = {
      {"", "bull1 bull2 bull3 bull4 bull5 bull6 bull7 bull8 bull9 "},
      {"RETURN_INSTANCES; NFIRST 2;", "bull1 bull2 "},
      {"NFIRST 3; WHERE anInt IN [2, 4], 8;", "bull2 bull3 bull4 "},
      {"ALLENT; WHERE anInt IN 8, 2, [2, 4], [-3, 1];", "bull1 bull2 bull3 bull4 bull8 "},
      {"WHERE anInt NOT_IN [2, 9];", "bull1 "},
      {"WHERE INT anInt IN [4, 9]; WHERE anInt NOT_IN [5, 8];", "bull4 bull9 "},
      {"WHERE aFloat IN 0.5, [1, 2.0];", "bull1 bull3 "},
      {"WHERE aDouble IN [1.4999999, PARAM Herd intake];", "bull3 "},
      {"NFIRST PARAM Herd size; WHERE anInt IN [PARAM Herd size, 9];", "bull2 bull3 "},
      {"WHERE aText IN \"b9\", b4, PARAM Herd breed;", "bull4 bull7 bull9 "},
      {"WHERE STRING \"aText\" NOT_IN b1, b2, b3, b4, b5, b6; NFIRST 1;", "bull7 "},
      {"WHERE anEntity IN hortense;", "bull1 "},
      {"WHERE ENTITY anEntity NOT_IN CLASS Cow, CLASS Farm; NFIRST 1;", "bull2 "},
      {"WHERE anEntity IN CLASS Farm, CLASS \"Cow\";", "bull1 bull3 "},
      {"WHERE anEntity IN CLASS Udder;", ""},
      {"WHERE DOUBLE A_DOUBLE IN 1.5;", "bull3 "},
  };
  SetParameter(DOUBLE, "intake", {.doubleValue = 16.5});
  SetParameter(INT, "size", {.intValue = 2});
  char breed[] = "b7";
  SetParameter(STRING, "breed", {.stringValue = breed});
  for (const auto& c : cases) {
    Read(ParseStructureFile, "SPEC some OF Bull { " + c[0] + " }");
    EXPECT_EQ(Selected("some"), c[1]) << c[0];
    DeleteEntitySpecs();
  }
}

TEST_F(SelectionsTest, StandInBothFiles) {
  Read(ParseStructureFile,
       "SPEC spare OF Paddock;\n"
       "ENTITY Farm farm { SPEC \"SPEC\" OF Paddock { REFERENT farm; } ELEMENT Paddock home; }\n");
  Read(ParseDirectiveFile, "SPEC more OF Paddock { NFIRST 1; }\n");
  EXPECT_EQ(Selected("spare") + Selected("SPEC") + Selected("more"), "home home home ");
  EXPECT_EQ(GetNamedEntitySpec("SPEC")->ReferentEntity(), GetNamedEntity("farm"));
}

TEST_F(SelectionsTest, MakesEntities) {
  Read(ParseStructureFile,
       "SPEC calves OF Bull {\n"
       "  INSTANTIATE; NFIRST 20;\n"
       "  WHERE INT AN_INT IN [3, 4]; WHERE STRING A_TEXT IN x; WHERE DOUBLE A_DOUBLE IN 2.5;\n"
       "}\n");
  GetNamedEntitySpec("calves")->Expand();
  EXPECT_EQ(GetNumberOfEntities(BULL), 20);
  for (const BasicEntity* entity : *GetEntityList(BULL)) {
    const auto& bull = static_cast<const Entity&>(*entity);
    EXPECT_TRUE(ValueText(bull, "anInt") == "3" || ValueText(bull, "anInt") == "4");
    EXPECT_EQ(ValueText(bull, "aText") + ValueText(bull, "aDouble"), "x2.5");
  }
}

/// The application's selection keeps its function, its class and its mode; the block adds to it.
TEST_F(SelectionsTest, TakesSelectionsAndConditionsOfTheApplication) {
  ReadBulls();
  Assign_App_NewEntitySpecFromStringFunction([](const char* name) -> EntitySpec* {
    if (std::string(name) != "even") return nullptr;
    auto* spec = new EntitySpec(BULL);
    spec->AssignSelectorPredicate([](EntitySpecMethod* method) {
      auto* bull = static_cast<Entity*>(method->GetEntityArgValue(CANDIDATEENTITY_ARGUMENT));
      return bull->GetIntValue(20) % 2 == 0;
    });
    return spec;
  });
  Assign_App_NewDescValueSpecFromStringFunction([](const char* name) -> DescValueSpec* {
    return std::string(name) == "young" ? new DescIntValueSpec(20, IN, 1, 5) : nullptr;
  });
  Read(ParseDirectiveFile, "SPEC even { CONDITION young; } SPEC all OF Bull { CONDITION young; NFIRST 3; }");
  EXPECT_EQ(Selected("even"), "bull2 bull4 ");
  EXPECT_EQ(Selected("all"), "bull1 bull2 bull3 ");
}

TEST_F(SelectionsTest, SaysWhatIsWrong) {
  ReadBulls();
  const std::string statements =
      "ALLENT, CONDITION, INSTANTIATE, NFIRST, REFERENT, RETURN_INSTANCES, WHERE ou '}'";
  const std::string values = "un nom, un texte entre guillemets, un entier, un réel, CLASS, PARAM ou '['";
  const FaultCase cases[] = {
      {"SPEC;", 1, "lu : ';' ; attendu : un nom ou un texte entre guillemets"},
      {"SPEC s\n12;", 2, "lu : '12' ; attendu : OF, ';' ou '{'"},
      {"SPEC s OF Bull\n{ MODE; }", 2, "lu : 'MODE' ; attendu : " + statements},
      {"SPEC s OF Bull { NFIRST; }", 1, "lu : ';' ; attendu : un entier ou PARAM"},
      {"SPEC s OF Bull { WHERE anInt = 3; }", 1, "lu : '=' ; attendu : IN ou NOT_IN"},
      {"SPEC s OF Bull { WHERE anInt IN; }", 1, "lu : ';' ; attendu : " + values},
      {"SPEC s OF Bull { WHERE anInt IN [1; }", 1, "lu : ';' ; attendu : ','"},
      {"SPEC s OF Bull {", 1, "lu : la fin du fichier ; attendu : '}' (accolade ouverte à la ligne 1)"},
      {"SPEC s OF Bull;\nSPEC s OF Bull;", 2, "SPEC 's' : une autre sélection porte déjà ce nom"},
      {"SPEC s OF Bull { ALLENT;\nNFIRST 3; }", 2, "NFIRST ou ALLENT : un seul dans la sélection 's'"},
      {"SPEC s OF Bull { INSTANTIATE;\nRETURN_INSTANCES; }", 2,
       "RETURN_INSTANCES ou INSTANTIATE : un seul dans la sélection 's'"},
      {"SPEC s OF Bull { REFERENT bull1; REFERENT bull1; }", 1, "REFERENT : un seul dans la sélection 's'"},
      {"SPEC s OF Bull { WHERE DOUBLE anInt IN 3; }", 1, "WHERE 'anInt' : le descripteur est de type INT"},
      {"SPEC s OF Bull { WHERE anInt IN 3,\n4.5; }", 2,
       "le descripteur 'anInt', de type INT, demande des entiers"},
      {"SPEC s OF Bull { WHERE aDouble IN [1, PARAM Herd breed]; }", 1,
       "le descripteur 'aDouble', de type DOUBLE, demande des nombres"},
      {"SPEC s OF Bull { WHERE aFloat IN CLASS Bull; }", 1,
       "le descripteur 'aFloat', de type FLOAT, demande des nombres"},
      {"SPEC s OF Bull { WHERE aText IN 3; }", 1,
       "le descripteur 'aText', de type STRING, demande des textes"},
      {"SPEC s OF Bull { WHERE aText IN CLASS Bull; }", 1,
       "le descripteur 'aText', de type STRING, demande des textes"},
      {"SPEC s OF Bull { WHERE anEntity IN [1, 2]; }", 1,
       "le descripteur 'anEntity', de type ENTITY, demande des noms d'entités, ou CLASS et un nom"},
      {"SPEC s OF Bull { WHERE someInts IN 3; }", 1,
       "WHERE 'someInts' : un descripteur de type INT_TAB ne se compare pas"},
      {"SPEC s OF Bull { INSTANTIATE; NFIRST 1; WHERE anEntity IN\nCLASS Cow; }", 2,
       "CLASS ne donne pas de valeur à une entité nouvelle (INSTANTIATE)"},
      {"SPEC s OF Paddock { WHERE area IN 3; }", 1,
       "WHERE 'area' : la classe n'a pas d'instance, le type doit être écrit (INT, FLOAT, DOUBLE, STRING ou "
       "ENTITY)"},
  };
  char breed[] = "Salers";
  SetParameter(STRING, "breed", {.stringValue = breed});
  for (const FaultCase& c : cases)
    for (auto parse : {ParseStructureFile, ParseDirectiveFile}) ExpectFault(parse, c);
}

TEST_F(SelectionsTest, EndsInTheFailureMadeForTheFault) {
  ReadBulls();
  const auto failure = [](const std::string& name) {
    return "\n!!!============== " + name + " ==============";
  };
  const FaultCase cases[] = {
      {"SPEC\ns;", 2,
       "sélection inconnue : 's' (une sélection nouvelle demande OF)" + failure("UnknownClassName")},
      {"SPEC s OF Goat;", 1, "SPEC 's'" + failure("NoInformationForReferenceClass")},
      {"SPEC s OF Bull {\nNFIRST 0; }", 2,
       "NFIRST demande un entier d'au moins 1" + failure("BadQuantitySpecification")},
      {"SPEC s OF Bull {\nINSTANTIATE; }", 1,
       "SPEC 's' : INSTANTIATE demande NFIRST" + failure("BadQuantitySpecification")},
      {"SPEC s OF Bull {\nREFERENT bull0; }", 2,
       "REFERENT 'bull0' : aucune entité ne porte ce nom" + failure("UnfoundEntityBasedOnInstanceName")},
      {"SPEC s OF Bull {\nCONDITION young; }", 2,
       "condition inconnue : 'young'" + failure("UnknownClassName")},
      {"SPEC s OF Bull {\nWHERE anInt IN [3, 2]; }", 2, "WHERE 'anInt'" + failure("BadIntervalBounds")},
      {"SPEC s OF Bull {\nWHERE height IN 2; }", 2,
       "WHERE 'height' : descripteur inconnu" + failure("InexistantDescriptor")},
      {"SPEC s OF Paddock {\nWHERE INT height IN 2; }", 2,
       "WHERE 'height' : descripteur inconnu" + failure("UnknownClassName")},
      {"SPEC s OF Bull {\nWHERE anEntity IN bull0; }", 2,
       "WHERE 'anEntity'" + failure("UnfoundEntityBasedOnInstanceName")},
      {"SPEC s OF Bull {\nWHERE anEntity IN CLASS Cow, bull1; }", 2,
       "WHERE 'anEntity'" + failure("UnAuthorizedEntitySubDomain")},
      {"SPEC s OF Bull {\nWHERE anEntity IN CLASS Goat; }", 2,
       "CLASS 'Goat' : classe d'entité inconnue" + failure("UnknownClassName")},
      {"SPEC s OF Bull { NFIRST\nPARAM Herd heads; }", 2,
       "PARAM 'Herd' 'heads'" + failure("InexistantTypedParameter")},
  };
  for (const FaultCase& c : cases)
    for (auto parse : {ParseStructureFile, ParseDirectiveFile}) ExpectFailure(parse, c);
}

TEST_F(SelectionsTest, TheDocumentedExampleStands) {
  Read(ParseStructureFile,
       "ENTITY Farm farm;\n"
       "ENTITY Cow cow1 { weight = 600.0; calvings = 1; } ENTITY Cow cow2 { weight = 710.0; calvings = 1; }\n"
       "ENTITY Cow cow3 { weight = 800.0; calvings = 2; } ENTITY Cow cow4 { weight = 600.0; }\n");
  Read(ParseDirectiveFile, DocumentedExample("Selections"));
  EXPECT_EQ(Selected("dryCows"), "cow1 cow3 ");
  GetNamedEntitySpec("newCows")->Expand();
  EXPECT_EQ(GetNumberOfEntities(COW), 6);
}

}  // namespace
