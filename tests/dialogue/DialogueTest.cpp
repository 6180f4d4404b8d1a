// What a user interface gets from a running model, byte for byte.
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "tests/dialogue/UserInterface.h"
#include "tests/support/ChildProcess.h"

namespace {

// The dates of the model: its clock counts hours from the 92nd day, 6h30.
const std::string date0 = "jour 92 ; 6h30' | UT 0";
const std::string date10 = "jour 92 ; 16h30' | UT 10";
const std::string date20 = "jour 93 ; 2h30' | UT 20";
const std::string date35 = "jour 93 ; 17h30' | UT 35";
const std::string date60 = "jour 94 ; 18h30' | UT 60";

std::string Update(const std::string& date) { return "\nUPDATE DATE {" + date + "}\n"; }
std::string Pause(const std::string& date) { return Update(date) + "WAIT MESSAGE\n"; }

/// Said in the second event, when a cow is born: her final name comes later.
const std::string drawn = "DRAW GRAPH entity_8 weight 2 LINE\n";

/// As long as a word can be.
const std::string longName = "spare-udder-of-a-cow-that-has-not-yet-been-born-1";

/// A run to its end and out of the last dialogue; an EXIT there does not end the process.
std::string RestOf(UserInterface& user) {
  std::string output = user.Ask("EXEC CONTINU 0 ", "FIN RUN\n");
  user.Send("EXIT ");
  return output + user.ReadAll();
}

struct Case {
  const char* words;
  std::string answer;
};

void ExpectAnswers(UserInterface& user, const std::vector<Case>& cases) {
  for (const Case& c : cases) EXPECT_EQ(user.Answer(c.words), c.answer) << c.words;
}

// The course of a run ---------------------------------------------------------------------------------------

TEST(Course, NothingHappensBeforeTheFirstWord) {
  UserInterface user;
  EXPECT_EQ(user.Opening(), "DRAW GRAPH entity_2 weight 2 LINE\nDRAW GRAPH entity_4 weight 2 LINE\nReady\n");
  EXPECT_EQ(user.ReadShortly(), "");
  EXPECT_EQ(user.Answer("QUERY AGENDA 1"), "ANSWER AGENDA {" + date0 +
                                               " | \"weighing\" ; 10 ; 20 | \"calving\" ; 20 ; 10 | "
                                               "\"weighing\" ; 20 ; 30 | \"sale\" ; 35 ; 10 | "
                                               "\"weighing\" ; 60 ; 20 | } \n\n");
  EXPECT_TRUE(user.IsRunning());
}

TEST(Course, AFreeRunTellsItsDates) {
  const std::string end = "FIN RUN\nRun is over\n";
  UserInterface user;
  EXPECT_EQ(RestOf(user), "\n" + Update(date10) + Update(date20) + drawn + Update(date20) + Update(date35) +
                              Update(date60) + end);
  EXPECT_EQ(user.Status(), 0);
  UserInterface withEnd({"end"});
  EXPECT_EQ(RestOf(withEnd), "\n" + Update(date10 + " | 16%") + Update(date20 + " | 33%") + drawn +
                                 Update(date20 + " | 33%") + Update(date35 + " | 58%") +
                                 Update(date60 + " | 100%") + end);
  UserInterface limited({"limit"});
  EXPECT_EQ(RestOf(limited), "\n" + Update(date10 + " | 33%") + Update(date20 + " | 66%") + drawn +
                                 Update(date20 + " | 100%") + end);
}

TEST(Course, EventStepsPauseBehindEachEvent) {
  UserInterface user;
  const std::string pauses[] = {Pause(date10), drawn + Pause(date20), Pause(date20), Pause(date35)};
  for (const std::string& pause : pauses)
    EXPECT_EQ(user.Ask("EXEC EVENTSTEP\n", "WAIT MESSAGE\n"), "\n" + pause);
  EXPECT_EQ(user.Ask("EXEC EVENTSTEP\n", "FIN RUN\n"), "\nFIN RUN\n");
}

TEST(Course, AUserStepCountsFromTheLastPause) {
  UserInterface user;
  EXPECT_EQ(user.Ask("EXEC USERSTEP 0 10 ", "WAIT MESSAGE\n"), "\n" + Pause(date10));
  EXPECT_EQ(user.Ask("EXEC USERSTEP 0 11 ", "WAIT MESSAGE\n"), "\n" + drawn + Pause(date35));
  EXPECT_EQ(user.Ask("EXEC USERSTEP 0 2147483647 ", "FIN RUN\n"), "\nFIN RUN\n");
  // Its width counts, not where it falls.
  UserInterface other;
  EXPECT_EQ(other.Ask("EXEC USERSTEP 0 -3 ", "WAIT MESSAGE\n"), "\n" + Pause(date10));
  EXPECT_EQ(other.Ask("EXEC USERSTEP 0 0 ", "WAIT MESSAGE\n"), "\n" + drawn + Pause(date20));
}

TEST(Course, AnUnknownWordLetsOneEventPassAndTheRunWaitsOn) {
  UserInterface user;
  EXPECT_EQ(user.Answer("go exec GO"), drawn);
  EXPECT_EQ(user.Answer("QUERY AGENDA 1"),
            "ANSWER AGENDA {" + date20 + " | \"sale\" ; 35 ; 10 | \"weighing\" ; 60 ; 20 | } \n\n");
  EXPECT_EQ(user.Answer("EXEC FASTER QUERY SPEED"), "\n\n");
  EXPECT_EQ(user.Ask("go go ", "FIN RUN\n"), "FIN RUN\n");
  EXPECT_EQ(user.ReadShortly(), "");
  user.Send("go ");
  EXPECT_EQ(user.ReadAll(), "Run is over\n");
}

TEST(Course, APauseHoldsAFreeRunWithoutAWord) {
  UserInterface user({"endless"});
  user.Ask("EXEC CONTINU 0 ", "UT 80}\n");
  const std::string output = user.Ask("PAUSE QUERY STRUCTURE stone ", "ANSWER STRUCTURE stone VOID {} \n\n");
  EXPECT_EQ(output.find("WAIT"), std::string::npos) << output;
  EXPECT_EQ(user.ReadShortly(), "");
  EXPECT_EQ(user.Answer("PAUSE"), "");
}

TEST(Course, QueriesInTheMiddleOfAFreeRunLetItGoOn) {
  UserInterface user({"endless"});
  user.Ask("EXEC CONTINU 0 ", "UT 80}\n");
  user.Send("QUERY INSTANCES LIVE Barn ");
  user.ReadUntil("ANSWER INSTANCES LIVE Barn {\"barn\" | } \n\n");
  EXPECT_EQ(user.ReadUntil("DATE {"), "\nUPDATE DATE {");
  // In a step of the user words are looked for in the same way.
  user.Send("EXEC USERSTEP 0 100000 ");
  user.ReadUntilQuiet();
  EXPECT_EQ(user.Ask("QUERY INSTANCES LIVE Barn ", "\n\n"), "ANSWER INSTANCES LIVE Barn {\"barn\" | } \n\n");
  user.Send("STOP ");
  EXPECT_EQ(user.ReadAll(), "FIN RUN\nRun is over\n");
}

TEST(Course, ASleepFollowsEachEvent) {
  UserInterface user({"limit"});
  const auto start = std::chrono::steady_clock::now();
  user.Ask("EXEC CONTINU 70 ", "FIN RUN\n");
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(210));
}

TEST(Course, StopEndsTheRunAndExitTheProcess) {
  UserInterface stopped;
  stopped.Send("go STOP ");
  EXPECT_EQ(stopped.ReadAll(), "FIN RUN\nRun is over\n");
  EXPECT_EQ(stopped.Status(), 0);
  UserInterface left;
  left.Send("go EXIT ");
  EXPECT_EQ(left.ReadAll(), "");
  EXPECT_EQ(left.Status(), 0);
}

std::string WithoutDigits(std::string text) {
  std::erase_if(text, [](char c) { return c >= '0' && c <= '9'; });
  return text;
}

TEST(Course, TheChronometerSpeaksDifferentlyAtTheTwoEnds) {
  UserInterface stopped({"clock"});
  stopped.Send("go STOP ");
  EXPECT_EQ(WithoutDigits(stopped.ReadAll()), "\nDUREE EXECUTION ''\nFIN RUN\nRun is over\n");
  UserInterface user({"clock", "limit"});
  EXPECT_EQ(WithoutDigits(user.Ask("go go go ", "FIN RUN\n")),
            WithoutDigits(drawn) + "DUREE EXECUTION : ''\nFIN RUN\n");
}

TEST(Course, TheLastDialogueAnswersUntilAWordLeavesIt) {
  UserInterface user({"limit"});
  EXPECT_EQ(user.Ask("go go go ", "FIN RUN\n"), drawn + "FIN RUN\n");
  EXPECT_EQ(user.Answer("QUERY INSTANCES LIVE Udder PAUSE MODIFY - violette note Joli "),
            "ANSWER INSTANCES LIVE Udder {\"udder_1\" | \"" + longName + "\" | \"udder_3\" | } \n\n");
  user.Send("EXEC EVENTSTEP ");
  EXPECT_EQ(user.ReadAll(), "\nRun is over\n");
}

TEST(Course, TheEndOfTheInputEndsAWordButNotTheRun) {
  UserInterface user;
  user.Send("EXEC EVENTSTEP");
  EXPECT_EQ(user.ReadShortly(), "");
  user.Close();
  EXPECT_EQ(user.ReadUntil("WAIT MESSAGE\n"), "\n" + Pause(date10));
  EXPECT_EQ(user.ReadShortly(), "");
  EXPECT_TRUE(user.IsRunning());
}

TEST(Course, AFailureSharesTheStream) {
  UserInterface user;
  user.Send("MODIFY - marguerite calvings 21 ");
  const std::string output = user.ReadAll();
  EXPECT_TRUE(output.starts_with("\n!!!============== OutOfIntDomain ==============")) << output;
  EXPECT_TRUE(output.ends_with("\nERROR \n")) << output;
  EXPECT_EQ(user.Status(), 0);
}

// Queries ---------------------------------------------------------------------------------------------------

TEST(Queries, Structure) {
  UserInterface user;
  const std::string alone = longName + " VOID {} ";
  const std::string barn =
      "barn ELEM {marguerite COMP {udder_1 VOID {} } blanchette COMP {missing_component VOID {} } } ";
  ExpectAnswers(
      user,
      {{"QUERY STRUCTURE barn", "ANSWER STRUCTURE barn ELEM {marguerite VOID {} blanchette VOID {} } \n\n"},
       {"QUERY STRUCTURE_D barn", "ANSWER STRUCTURE " + barn + "\n\n"},
       {"QUERY STRUCTURE ROOT", "ANSWER STRUCTURE ROOT FREE {barn VOID {} " + alone + "} \n\n"},
       {"QUERY STRUCTURE_D ROOT", "ANSWER STRUCTURE ROOT FREE {" + barn + alone + "} \n\n"},
       {"QUERY STRUCTURE udder_1", "ANSWER STRUCTURE udder_1 VOID {} \n\n"},
       {"QUERY STRUCTURE_D nobody", "ANSWER STRUCTURE nobody VOID {} \n\n"},
       // A longer word is cut to the 49 letters of this name.
       {("QUERY STRUCTURE " + longName + std::string(1000, 'u')).c_str(),
        "ANSWER STRUCTURE " + alone + "\n\n"}});
}

TEST(Queries, AllDescriptors) {
  UserInterface user;
  ExpectAnswers(
      user,
      {{"QUERY DESCRIPTORS marguerite",
        "ANSWER DESCRIPTORS marguerite {\"instantAttribute\" ; 0 ; C ; INT | \"breed\" ; Normande ; C ; STRING | "
        "\"currentElementIndex\" ; 0 ; V ; INT | \"calvings\" ; 3 ; V ; INT | \"weight\" ; 612.5 ; V ; DOUBLE | "
        "\"feed\" ; 0 ; V ; FLOAT | \"note\" ;  ; V ; STRING | \"mother\" ; no_name ; V ; ENTITY | } \n\n"},
       {"QUERY DESCRIPTORS nobody", "ANSWER DESCRIPTORS nobody {} \n\n"},
       {"QUERY DESCRIPTORS stone", "ANSWER DESCRIPTORS stone {} \n\n"},
       {"QUERY DESCRIPTORS store",
        "ANSWER DESCRIPTORS store {\"instantAttribute\" ; 0 ; C ; INT | \"c_int\" ; 0 ; C ; INT | "
        "\"c_float\" ; 0 ; C ; FLOAT | \"c_double\" ; 0 ; C ; DOUBLE | \"c_entity\" ; no_name ; C ; ENTITY | "
        "\"c_entities\" ; no_name ; C ; ENTITY_TAB | \"c_spec\" ;  ; C ; ENTITY_SPEC | "
        "\"c_ints\" ;  ; C ; INTDOMAIN | \"c_floats\" ;  ; C ; FLOATDOMAIN | \"c_doubles\" ;  ; C ; DOUBLEDOMAIN | "
        "\"c_conditions\" ;  ;  | \"c_texts\" ;  ; C ; STRING_TAB | \"c_floatTab\" ; no_value ; C ; FLOAT_TAB | "
        "\"asBoolean\" ;  ; C ; BOOL | \"asCondition\" ;  ; C ; DESCVALUE_SPEC | \"asEvent\" ;  ;  | "
        "\"c_intTab\" ; no_value ; C ; INT_TAB | \"c_doubleTab\" ; no_value ; C ; DOUBLE_TAB | "
        "\"currentElementIndex\" ; 0 ; V ; INT | \"entities\" ; no_name ; V ; ENTITY_TAB | "
        "\"spec\" ;  ; V ; ENTITY_SPEC | \"ints\" ;  ; V ; INTDOMAIN | \"floats\" ;  ; V ; FLOATDOMAIN | "
        "\"doubles\" ;  ; V ; DOUBLEDOMAIN | \"conditions\" ;  ;  | \"texts\" ;  ; V ; STRING_TAB | "
        "\"asBoolean\" ;  ; V ; BOOL | \"asCondition\" ;  ; V ; DESCVALUE_SPEC | \"asEvent\" ;  ;  | "
        "\"asIntTab\" ;  ;  | \"asFloatTab\" ;  ; V ; FLOAT_TAB | \"asDoubleTab\" ;  ;  | "
        "\"fixed\" ; 0 ; V ; INT | \"last\" ;  ; V ; STRING | } \n\n"}});
}

TEST(Queries, OneDescriptor) {
  const std::string head = "ANSWER DESCRIPTOR marguerite ";
  const std::string noSeries =
      "ERROR | le descripteur n'a pas fait l'objet d'une spécification d'enregistrement\n\n";
  UserInterface user;
  ExpectAnswers(
      user,
      {{"QUERY DESCRIPTOR marguerite weight CURRENTVALUE",
        head + "weight F 0 2147483647 -9 -9 1 1 {0 ; 612.5 | }\n\n"},
       {"QUERY DESCRIPTOR marguerite calvings CURRENTVALUE",
        head + "calvings I 0 2147483647 -9 -9 1 1 {0 ; 3 | }\n\n"},
       {"QUERY DESCRIPTOR marguerite mother CURRENTVALUE",
        "ERROR | le descripteur n'est ni entier ni réel.\n" + head +
            "mother  0 2147483647 -9 -9 1 1 {0 ; no_name | }\n\n"},
       {"MODIFY - marguerite currentElementIndex -9 QUERY DESCRIPTOR marguerite currentElementIndex CURRENTVALUE",
        head + "currentElementIndex I 0 2147483647 -9 -9 1 1 {0 ; -9 | }\n\n"},
       {"QUERY DESCRIPTOR marguerite temper CURRENTVALUE", "}\n\n"},  // private
       {"QUERY DESCRIPTOR marguerite breed CURRENTVALUE", "}\n\n"},   // constant
       {"QUERY DESCRIPTOR stone weight CURRENTVALUE", "}\n\n"},
       {"QUERY DESCRIPTOR nobody weight CURRENTVALUE", "\n"},
       {"QUERY DESCRIPTOR marguerite feed HISTORY", head + "feed F 0 2147483647 -9 -9 1 1 {} \n\n"},
       {"QUERY DESCRIPTOR marguerite feed LAST", head + "feed F 0 2147483647 -9 -9 1 1 {-}\n\n"},
       {"QUERY DESCRIPTOR marguerite note HISTORY", Latin1(noSeries)},
       {"QUERY DESCRIPTOR marguerite temper LAST", Latin1(noSeries)},
       {"QUERY DESCRIPTOR stone weight HISTORY", Latin1(noSeries)},
       {"QUERY DESCRIPTOR nobody weight HISTORY", "\n"},
       {"go go go QUERY DESCRIPTOR marguerite weight HISTORY",
        drawn + head + "weight F 0 2147483647 -9 -9 1 1 {0 ; 612.5 | 10 ; 617.75 | 20 ; 623 | } \n\n"},
       {"QUERY DESCRIPTOR marguerite weight LAST",
        head + "weight F 0 2147483647 -9 -9 1 1 {20 ; 623 | -}\n\n"},
       {"QUERY DESCRIPTOR marguerite weight CURRENTVALUE",
        head + "weight F 0 2147483647 -9 -9 1 1 {20 ; 623 | }\n\n"}});
  UserInterface withEnd({"end"});
  EXPECT_EQ(withEnd.Answer("QUERY DESCRIPTOR marguerite calvings CURRENTVALUE"),
            head + "calvings I 0 60 -9 -9 1 1 {0 ; 3 | }\n\n");
}

TEST(Queries, Instances) {
  const std::string noRecord =
      "ERROR | la classe n'a pas fait l'objet d'une spécification d'enregistrement de création des instances\n";
  UserInterface user;
  ExpectAnswers(
      user,
      {{"QUERY INSTANCES LIVE Cow", "ANSWER INSTANCES LIVE Cow {\"marguerite\" | \"blanchette\" | } \n\n"},
       {"QUERY INSTANCES LIVE ROOT", "ANSWER INSTANCES LIVE Barn {\"barn\" | } \n\n"},
       {"QUERY INSTANCES LIVE Dragon", "ANSWER INSTANCES LIVE Dragon {} \n\n"},
       {"QUERY INSTANCES LIVE entity", "ANSWER INSTANCES LIVE entity {} \n\n"},
       {"QUERY INSTANCES DEAD Udder", "ANSWER INSTANCES DEAD Udder {} \n\n"},
       {"go go go go QUERY INSTANCES ALL Udder",
        drawn + "ANSWER INSTANCES ALL Udder {\"udder_1\" | \"" + longName + "\" | \"udder_3\" | } \n\n"},
       {"QUERY INSTANCES DEAD Udder", "ANSWER INSTANCES DEAD Udder {\"" + longName + "\" | } \n\n"},
       {"QUERY INSTANCES ALL Barn", Latin1("ANSWER INSTANCES ALL Barn {" + noRecord + "} \n\n")},
       {"QUERY INSTANCES DEAD ROOT", Latin1("ANSWER INSTANCES DEAD Barn {" + noRecord + "} \n\n")},
       {"QUERY INSTANCES SOME Cow", "ANSWER INSTANCES } \n\n"}});
}

// Subscriptions ---------------------------------------------------------------------------------------------

TEST(Subscriptions, TheAgendaComesAtEachPause) {
  const std::string step = "EXEC EVENTSTEP ";
  const std::string end = "WAIT MESSAGE\n";
  const std::string sale = "\"sale\" ; 35 ; 10 | \"weighing\" ; 60 ; 20 | } \n";
  const std::string first = "\n" + Update(date10) + "ANSWER AGENDA {" + date10 +
                            " | \"calving\" ; 20 ; 10 | \"weighing\" ; 20 ; 30 | " + sale + end;
  const std::string second = "\n" + drawn + Update(date20) + "ANSWER AGENDA {" + date20 +
                             " | \"weighing\" ; 20 ; 30 | " + sale + end;
  const std::string ends[] = {"QUERY AGENDA 1", "UNQUERY GRAPH nobody PERMANENTAGENDA"};
  for (const std::string& words : ends) {
    UserInterface user;
    EXPECT_EQ(user.Answer("QUERY PERMANENTAGENDA 1"), "\n");
    EXPECT_EQ(user.Ask(step, end), first);
    // No subscription ends under an entity's name, nor under another word.
    EXPECT_EQ(user.Answer("UNQUERY GRAPH marguerite PERMANENTAGENDA UNQUERY PERMANENTAGENDA"), "");
    EXPECT_EQ(user.Ask(step, end), second);
    user.Answer(words);
    EXPECT_EQ(user.Ask(step, end), "\n" + Pause(date20));
  }
}

TEST(Subscriptions, ChangesOfStructureAreTold) {
  UserInterface user;
  EXPECT_EQ(user.Answer("QUERY PERMANENTSTRUCTURE go"), "\n");
  EXPECT_EQ(user.Answer("go"), drawn +
                                   "\nANSWER PERMSTRUCTURE ELEMADD {barn ; violette | }\n"
                                   "ANSWER STRUCTURE violette COMP {missing_component VOID {} } \n"
                                   "\nANSWER PERMSTRUCTURE COMPADD {violette ; udder_3 | }\n"
                                   "ANSWER STRUCTURE udder_3 VOID {} \n");
  EXPECT_EQ(user.Answer("go go"), "\nANSWER PERMSTRUCTURE ELEMREM {barn ; blanchette | }\n");
  UserInterface other;
  EXPECT_EQ(other.Answer("QUERY PERMANENTSTRUCTURE go UNQUERY GRAPH nobody PERMANENTSTRUCTURE go go go"),
            "\n" + drawn);
}

TEST(Subscriptions, ChangesOfPlottedDescriptorsAreTold) {
  UserInterface user;
  ExpectAnswers(user,
                {{"QUERY GRAPH marguerite weight", "\n"},
                 {"QUERY GRAPH marguerite temper", "\n"},  // private ones too
                 {"QUERY GRAPH nobody weight", "\n"},
                 {"QUERY GRAPH marguerite breed",
                  Latin1("ERROR | le descripteur breed n'a pas été attaché à la classe Cow\n\n")},
                 {"QUERY GRAPH stone weight",
                  Latin1("ERROR | le descripteur weight n'a pas été attaché à la classe Stone\n\n")},
                 {"go", "\nUPDATE GRAPH marguerite weight 10 617.75\n"},
                 {"MODIFY - marguerite temper 2", "\nUPDATE GRAPH marguerite temper 10 2\n"},
                 // This is the third change of the cow's life: every second one is told, from the first on.
                 {"SET SAMPLING marguerite weight 2 MODIFY - marguerite weight 600",
                  "\nUPDATE GRAPH marguerite weight 10 600\n"},
                 {"MODIFY - marguerite weight 601.5", ""},
                 {"SET SAMPLING marguerite weight 0 MODIFY - marguerite weight 602",
                  "\nUPDATE GRAPH marguerite weight 10 602\n"},
                 {"SET SAMPLING marguerite weight 1 UNQUERY GRAPH marguerite weight go go", drawn},
                 // A name that no variable has means the last one.
                 {"UNQUERY GRAPH marguerite nothing MODIFY - marguerite temper 3", ""}});
}

// Changes ---------------------------------------------------------------------------------------------------

TEST(Changes, AValueIsReadByTheTypeOfItsDescriptor) {
  UserInterface user;
  const auto valueOf = [&user](const std::string& variable) {
    const std::string answer = user.Answer("QUERY DESCRIPTOR marguerite " + variable + " CURRENTVALUE");
    const std::size_t start = answer.find("{0 ; ");
    return start == std::string::npos ? answer : answer.substr(start + 5, answer.find(" | }") - start - 5);
  };
  struct Change {
    const char* variable;
    const char* value;
    const char* present;
  };
  const Change changes[] = {
      {"calvings", "12", "12"},          {"calvings", "7.9", "7"},   {"calvings", "many", "0"},
      {"weight", "601.125", "601.125"},  {"weight", "1e400", "inf"}, {"weight", "-x", "0"},
      {"feed", "0.3333333", "0.333333"}, {"feed", "1e300", "inf"},   {"note", "abc|{}", "abc|{}"}};
  for (const Change& c : changes) {
    EXPECT_EQ(user.Answer(std::string("MODIFY anything marguerite ") + c.variable + " " + c.value), "");
    EXPECT_EQ(valueOf(c.variable), c.present) << c.variable << " " << c.value;
  }
}

TEST(Changes, OddOnesKeepTheirWire) {
  UserInterface user;
  ExpectAnswers(user,
                {// Of an unknown entity the value is not read: it is a command.
                 {"MODIFY - nobody weight QUERY GRAPH nobody weight", "\n"},
                 {"SET SAMPLING nobody weight 2 QUERY GRAPH nobody weight", "\n"},
                 {"MODIFY - stone weight QUERY", ""},
                 {"SET SAMPLING stone weight 2", ""},
                 {"UNQUERY GRAPH stone weight", ""},
                 {"SET PACE UNQUERY PACE", ""},
                 {"MODIFY - marguerite mother blanchette",
                  "ERROR | le descripteur est un descripteur variable de type Entity\n"},
                 {"MODIFY - store fixed 3", "ERROR | le descripteur n'est pas un descripteur variable\n"},
                 {"MODIFY - store entities marguerite", ""},
                 {"MODIFY - store nothing tout QUERY DESCRIPTOR store last CURRENTVALUE",
                  Latin1("ERROR | le descripteur n'est ni entier ni réel.\n"
                         "ANSWER DESCRIPTOR store last  0 2147483647 -9 -9 1 1 {0 ; tout | }\n\n")}});
}

// Words -----------------------------------------------------------------------------------------------------

const std::string script =
    "QUERY STRUCTURE barn\tMODIFY - marguerite weight 612.5\nSET SAMPLING marguerite feed 3 "
    "QUERY DESCRIPTOR marguerite weight CURRENTVALUE\r\nQUERY PERMANENTAGENDA 2 UNQUERY GRAPH nobody "
    "PERMANENTAGENDA QUERY INSTANCES LIVE Cow QUERY AGENDA\v7\f";

TEST(Pieces, WordsMayBeCutAnywhere) {
  UserInterface user;
  const std::string whole = user.Answer(script);
  EXPECT_GT(whole.size(), 350U);
  for (std::size_t at = 1; at < script.size(); ++at) {
    user.SendAndSettle(script.substr(0, at));
    ASSERT_EQ(user.Answer(script.substr(at)), whole) << at;
  }
  for (char byte : script) user.SendAndSettle({byte});
  EXPECT_EQ(user.Answer(""), whole);
}

TEST(Pieces, AnUnsynchronisedStreamReadsThemToo) {
  UserInterface user({"loose"});
  const std::string whole = user.Answer(script);
  EXPECT_EQ(UserInterface().Answer(script), whole);
  for (std::size_t at = 1; at < script.size(); at += 7) {
    user.SendAndSettle(script.substr(0, at));
    ASSERT_EQ(user.Answer(script.substr(at)), whole) << at;
  }
  user.Close();
  EXPECT_EQ(user.ReadShortly(), "");
}

TEST(Pieces, ALateArgumentHoldsARunAndItsAnswer) {
  UserInterface user({"bare", "endless"});
  // Some answers begin before their argument is there.
  const std::pair<const char*, const char*> cases[] = {
      {"QUERY STRUCTURE ", "ANSWER STRUCTURE "},
      {"nobody QUERY AGENDA ", "nobody VOID {} \n\nANSWER AGENDA {"},
      {"1 QUERY DESCRIPTORS ", "\"tick\" ; 61 ; 50 | } \n\n"},
      {"nobody QUERY INSTANCES ", "ANSWER DESCRIPTORS nobody {} \n\nANSWER INSTANCES "},
      {"LIVE ", "LIVE "},
      {"Barn EXEC CONTINU ", "Barn {\"barn\" | } \n\n"}};
  for (const auto& [words, answer] : cases) {
    EXPECT_TRUE(user.Ask(words, answer).ends_with(answer));
    EXPECT_EQ(user.ReadShortly(), "") << words;
  }
  EXPECT_EQ(user.Ask("0 ", "UT 10}\n"), "\n" + Update(date10));
  user.Send("QUERY GRAPH marguerite ");
  user.ReadUntilQuiet();
  EXPECT_EQ(user.Ask("weight ", "UPDATE"), "\n\nUPDATE");
}

TEST(Pieces, RandomBytesEndInOrder) {
  std::mt19937 random(7);
  const auto below = [&random](std::size_t n) { return random() % n; };
  // No large number: a run would sleep so many milliseconds.
  const std::vector<std::string> words = {
      "EXEC",    "CONTINU",  "USERSTEP",     "EVENTSTEP",   "PAUSE",       "STOP",       "QUERY",
      "UNQUERY", "MODIFY",   "SET",          "STRUCTURE",   "STRUCTURE_D", "AGENDA",     "PERMANENTAGENDA",
      "GRAPH",   "SAMPLING", "INSTANCES",    "DESCRIPTORS", "DESCRIPTOR",  "HISTORY",    "CURRENTVALUE",
      "LIVE",    "ALL",      "DEAD",         "ROOT",        "Cow",         "marguerite", "store",
      "stone",   "barn",     "weight",       "feed",        "note",        "fixed",      "PERMANENTSTRUCTURE",
      "0",       "1",        "-99999999999", "violette"};
  for (int turn = 0; turn < 25; ++turn) {
    UserInterface user;
    std::string bytes;
    const bool mayStop = turn % 5 == 0;
    for (int i = 0; i < 400; ++i) {
      const std::size_t kind = below(20);
      const std::string& word = words[below(words.size())];
      if (kind == 0)
        for (std::size_t length = below(120); length > 0; --length) bytes += static_cast<char>(below(256));
      else if (mayStop || word != "STOP")
        bytes += word;
      bytes += " \n\t"[below(3)];
    }
    for (std::size_t at = 0; at < bytes.size(); at += 97) user.Send(bytes.substr(at, 97));
    user.Send(" EXIT EXIT EXIT EXIT EXIT EXIT ");
    user.Close();
    user.ReadAll();
    EXPECT_EQ(user.Status(), 0) << turn;
  }
}

// The page for those who write an interface -----------------------------------------------------------------

/// Blanks at the end of a line do not show on a page.
std::string Shown(const std::string& line) { return line.substr(0, line.find_last_not_of(" \n") + 1); }

TEST(Page, ItsTranscriptIsWhatTheModelPrints) {
  std::ifstream page(KALVE_DIALOGUE_PAGE);
  std::string line;
  while (std::getline(page, line) && line != "```transcript") {
  }
  UserInterface user({"end"});
  int sent = 0;
  while (std::getline(page, line) && line != "```") {
    if (line.starts_with("> ")) {
      user.Send(line.substr(2) + "\n");
      ++sent;
    } else {
      ASSERT_EQ(Shown(user.ReadUntil("\n")), Latin1(line));
    }
  }
  EXPECT_GT(sent, 10);
  EXPECT_EQ(user.ReadAll(), "");
}

}  // namespace
