// Text dumps of an entity and of what stands below it.
//
// Display shows whole addresses, the others their low 32 bits. A prefix of four blanks for each level stands
// in front of every line, and one step more in front of the lines of a section.
#include <algorithm>
#include <cstdio>
#include <string>

#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Records.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/model/MetaClass.h"

namespace {

constexpr const char* step = "    ";

/// At most 79 blanks: from level 20 on the lines move in no further.
std::string PrefixOf(int level) {
  return std::string(static_cast<std::size_t>(std::clamp(level, 0, 20) * 4), ' ').substr(0, 79);
}

/// Calls `print` with each living entity and with the separator behind it, none behind the last rank, and
/// `pass` with the rank of any other.
template <class Print, class Pass>
void ForEach(const Tableau<BasicEntity*>& entities, Print print, Pass pass) {
  for (int rank = 0; rank < entities.size(); ++rank) {
    if (IsLivingEntity(entities[rank]))
      print(*entities[rank], rank < entities.size() - 1 ? ", " : "");
    else
      pass(rank);
  }
}

template <class Print>
void ForEach(const Tableau<BasicEntity*>& entities, Print print) {
  ForEach(entities, print, [](int) {});
}

void PrintClass(const BasicEntity& entity, const char* separator) {
  std::printf("%s%s", entity.ClassName(), separator);
}

void PrintPointer(const BasicEntity& entity, const char* separator) {
  std::printf("%p%s", static_cast<const void*>(&entity), separator);
}

void Rule(const char* prefix) { std::printf("\n%s---------------------", prefix); }

void Header(const char* prefix, const BasicEntity& entity) {
  std::printf("\n%sEntité : %x, nom : %s", prefix, Address32(&entity), entity.InstanceName());
}

void SuperEntity(const char* prefix, const BasicEntity* super) {
  if (super == nullptr) return;
  std::printf("\n%s%sclasse de la super-entité : %s", prefix, step, super->ClassName());
  std::printf("\n%s%ssuper-entité : %x", prefix, step, Address32(super));
}

void SuperSets(const char* prefix, const Tableau<BasicEntity*>& sets) {
  if (sets.empty()) return;
  std::printf("\n%s%sclasse des sur-ensembles : %s", prefix, step, sets[0]->ClassName());
  std::printf("\n%s%ssur-ensembles : (", prefix, step);
  ForEach(sets, [](const BasicEntity& set, const char* separator) {
    std::printf("%x%s", Address32(&set), separator);
  });
  std::printf(")");
}

void ElementClass(const char* prefix, const Tableau<BasicEntity*>& elements) {
  std::printf("\n%s%sclasse des éléments : %s", prefix, step, elements[0]->ClassName());
}

/// The dumps of the parts, between the brackets of their section.
template <class Dump>
void Below(const char* prefix, const char* title, const Tableau<BasicEntity*>& parts, Dump dump) {
  std::printf("\n%s%s%s : (..", prefix, step, title);
  for (const BasicEntity* part : parts) dump(*part);
  std::printf("\n%s%s..)", prefix, step);
}

void Parents(const Tableau<int>& ids) {
  for (int i = 0; i < ids.size(); ++i) {
    const MetaClass* const parent = GetMetaClass(ids[i]);
    const std::string name = parent != nullptr ? parent->ClassName() : ClassSymbolText(ids[i]);
    std::printf(i < ids.size() - 1 ? "%s, " : "%s", name.c_str());
  }
}

}  // namespace

void BasicEntity::Display() const {
  Rule("");
  std::printf("\nEntité : %p, classe : %s", static_cast<const void*>(this), ClassName());
  if (const BasicEntity* const super = LivingSuperEntity()) {
    std::printf("\n   classe de la super-entité : %s", super->ClassName());
    std::printf("\n   super-entité : %p", static_cast<const void*>(super));
  }
  if (HasComponents()) {
    std::printf("\n   classes des composants : (");
    ForEach(mComponentTab, PrintClass, [this](int slot) { WarnOfEmptySlot(slot); });
    std::printf(")\n   composants : (");
    ForEach(mComponentTab, PrintPointer);
    std::printf(")");
  }
  const Tableau<BasicEntity*> sets = LivingSuperSets();
  if (!sets.empty()) {
    std::printf("\n   classe des ensembles : %s", sets[0]->ClassName());
    std::printf("\n   ensembles : (");
    ForEach(sets, [](const BasicEntity& set, const char* separator) {
      PrintPointer(set, separator);
      std::printf(")");
    });
  }
  const Tableau<BasicEntity*> elements = LivingElements();
  if (!elements.empty()) {
    std::printf("\n   classe des éléments : %s", elements[0]->ClassName());
    std::printf("\n   éléments : (");
    ForEach(elements, PrintPointer);
    std::printf(")");
  }
  std::printf("\n---------------------\n");
}

void BasicEntity::DisplayInDepth(int level) const {
  const std::string blanks = PrefixOf(level);
  const char* const prefix = blanks.c_str();
  const auto dump = [level](const BasicEntity& part) { part.DisplayInDepth(level + 1); };
  Rule(prefix);
  Header(prefix, *this);
  SuperEntity(prefix, LivingSuperEntity());
  if (HasComponents()) {
    std::printf("\n%s%sclasses des composants : (\n", prefix, step);
    ForEach(
        mComponentTab,
        [prefix](const BasicEntity& component, const char* separator) {
          std::printf("%s%s  %s%s\n", prefix, step, component.ClassName(), separator);
        },
        [&](int slot) {
          std::printf("%s%s  !!! composant de symbole de classe %s non présent. !!!\n", prefix, step,
                      ClassSymbolText(mComponentClassIds[slot]).c_str());
        });
    std::printf("%s%s)", prefix, step);
    Below(prefix, "composants", LivingComponents(), dump);
  }
  SuperSets(prefix, LivingSuperSets());
  const Tableau<BasicEntity*> elements = LivingElements();
  if (!elements.empty()) {
    ElementClass(prefix, elements);
    Below(prefix, "éléments", elements, dump);
  }
  Rule(prefix);
}

void BasicEntity::DisplayShortInDepth(int level) const {
  const std::string blanks = PrefixOf(level);
  const char* const prefix = blanks.c_str();
  const auto dump = [level](const BasicEntity& part) { part.DisplayShortInDepth(level + 1); };
  Rule(prefix);
  std::printf("\n%sEntité : %s (%x)", prefix, InstanceName(), Address32(this));
  if (HasComponents()) Below(prefix, "composants", LivingComponents(), dump);
  const Tableau<BasicEntity*> elements = LivingElements();
  if (!elements.empty()) Below(prefix, "éléments", elements, dump);
  Rule(prefix);
}

// One level, so that the prefix is empty.
void BasicEntity::DisplayAttributes() const {
  Rule("");
  Header("", *this);
  std::printf("\n%s\tclasse : %s", step, ClassName());
  std::printf("\n%s\tclasses parentes : (", step);
  Parents(ParentIds());
  std::printf(")");
  SuperEntity("", LivingSuperEntity());
  if (HasComponents()) {
    std::printf("\n%sclasses des composants : (", step);
    ForEach(mComponentTab, PrintClass, [this](int slot) {
      std::printf("\n%s  !!! composant de symbole de classe %s non présent. !!!\n", step,
                  ClassSymbolText(mComponentClassIds[slot]).c_str());
    });
    std::printf(")\n%scomposants : (", step);
    ForEach(mComponentTab, [](const BasicEntity& component, const char* separator) {
      std::printf("%s(%x)%s", component.InstanceName(), Address32(&component), separator);
    });
    std::printf(")");
  }
  SuperSets("", LivingSuperSets());
  std::printf("\nDE avant HasElements ?");
  const Tableau<BasicEntity*> elements = LivingElements();
  if (!elements.empty()) {
    ElementClass("", elements);
    std::printf("\n%séléments : (..", step);
    for (const BasicEntity* element : elements)
      std::printf("%s%s (%x))", step, element->InstanceName(), Address32(element));
    std::printf("\n%s..)", step);
  }
  Rule("");
}

void BasicEntity::DisplayElementTab() const {
  std::printf("\ntableau des éléments de %x à l'adresse %x  : (", Address32(this), Address32(&mElementTab));
  for (const BasicEntity* element : LivingElements()) std::printf("%x\t", Address32(element));
  std::printf(")\n");
}

void BasicEntity::DisplayElementNames() const {
  std::printf("\n(");
  for (const BasicEntity* element : LivingElements()) std::printf("%s ", element->InstanceName());
  std::printf(")\n");
}
