// Failures of components, elements and super-sets.
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/foundations/Tableau.h"
#include "kalve/model/BasicEntity.h"

namespace {

/// "'name' de classe 'class'", or the address of one without a name.
std::string Shown(BasicEntity const* entity) {
  if (entity == nullptr) return "NULL";
  const std::string name = entity->InstanceName();
  return (name.empty() ? Text("%p", static_cast<const void*>(entity)) : "'" + name + "'") +
         Text(" de classe '%s'", entity->ClassName());
}

std::string Name(BasicEntity const* entity) { return entity != nullptr ? entity->InstanceName() : "NULL"; }

/// "name (class)", or "name (classe number)" for a class that has no printable name.
std::string NameAndClass(BasicEntity const* entity) {
  const int id = entity->ClassId();
  return Name(entity) +
         (HasClassSymbolName(id) ? Text(" (%s)", ClassSymbolText(id).c_str()) : Text(" (classe %d)", id));
}

/// Two class symbols in one message: both by name, or both by number.
std::string Symbol(int shown, int other) {
  return HaveClassSymbolNames(shown, other) ? ClassSymbolText(shown) : std::to_string(shown);
}

}  // namespace

// Components ------------------------------------------------------------------------------------------------

void ComponentCannotCoexistWithElement(BasicEntity* entity, int componentClass) {
  const int elementClass = entity->ElementClassId();
  ReportFailure("\n!!!============== ComponentCannotCoexistWithElement ==============",
                "\n!!! On déclare un composant de classe %s pour l'entité %s"
                "\n    alors qu'elle est construite pour recevoir des éléments de classe %s.",
                Symbol(componentClass, elementClass).c_str(), Shown(entity).c_str(),
                Symbol(elementClass, componentClass).c_str());
}

void ElementCannotCoexistWithComponent(BasicEntity* entity, int elementClass) {
  ReportFailure("\n!!!============== ElementCannotCoexistWithComponent ==============",
                "\n!!! On déclare des éléments de classe %s pour l'entité %s"
                "\n    alors qu'elle est construite pour recevoir des composants.",
                ClassSymbolText(elementClass).c_str(), Shown(entity).c_str());
}

void ComponentAlreadyPlugged(BasicEntity* entity, BasicEntity* occupant, BasicEntity* candidate) {
  ReportFailure("\n!!!============== ComponentAlreadyPlugged ==============",
                "\n!!! On tente de brancher le composant %s"
                "\n    sur l'entité %s"
                "\n    alors que la place est déjà occupée par %s.",
                Shown(candidate).c_str(), Shown(entity).c_str(), Shown(occupant).c_str());
}

void ComponentPluggedElsewhere(BasicEntity* entity, BasicEntity* other, BasicEntity* candidate) {
  ReportFailure("\n!!!============== ComponentPluggedElsewhere ==============",
                "\n!!! On tente de brancher le composant %s"
                "\n    sur l'entité %s"
                "\n    alors qu'il est déjà branché sur %s.",
                Shown(candidate).c_str(), Shown(entity).c_str(), Shown(other).c_str());
}

void BadComponentClassId(BasicEntity* entity, int componentClass) {
  const int entityClass = entity->ClassId();
  ReportFailure("\n!!!============== BadComponentClassId ==============",
                "\n!!! On cherche un composant de classe %s pour l'entité '%s' de classe %s"
                "\n    alors qu'elle n'est pas construite pour recevoir un tel composant.",
                Symbol(componentClass, entityClass).c_str(), Name(entity).c_str(),
                Symbol(entityClass, componentClass).c_str());
}

void NotYetPluggedComponent(BasicEntity* entity, int componentClass) {
  ReportFailure("\n!!!============== NotYetPluggedComponent ==============",
                "\n!!! On cherche le composant de classe %s de l'entité %s"
                "\n    alors qu'il n'est pas encore branché.",
                ClassSymbolText(componentClass).c_str(), Shown(entity).c_str());
}

void BadComponentName(BasicEntity* entity, const char* className) {
  ReportFailure("\n!!!============== BadComponentName ==============",
                "\n!!! On cherche un composant de classe '%s' pour l'entité %s"
                "\n    alors qu'elle n'est pas construite pour recevoir un tel composant.",
                OrEmpty(className), Shown(entity).c_str());
}

void DoNotHaveSuperEntity(BasicEntity* entity, int superEntityClass) {
  ReportFailure("\n!!!============== DoNotHaveSuperEntity ==============",
                "\n!!! On cherche la super-entité de classe %s de l'entité %s"
                "\n    alors qu'elle n'en a pas.",
                ClassSymbolText(superEntityClass).c_str(), Shown(entity).c_str());
}

void SuperEntityAlreadyEquippedWithClass(BasicEntity* superEntity, int componentClass, BasicEntity* occupant,
                                         BasicEntity* candidate) {
  ReportFailure("\n!!!============== SuperEntityAlreadyEquippedWithClass ==============",
                "\n!!! On tente d'équiper la super-entité %s"
                "\n    avec le composant %s"
                "\n    alors qu'elle possède déjà un composant de classe %s : %s.",
                Shown(superEntity).c_str(), Shown(candidate).c_str(), ClassSymbolText(componentClass).c_str(),
                Shown(occupant).c_str());
}

namespace {

constexpr const char* unAuthorizedAccessToComponent =
    "\n!!!============== UnAuthorizedAccessToComponent ==============";

}  // namespace

void UnAuthorizedAccessToComponent(BasicEntity const* entity, const char* operation) {
  ReportFailure(unAuthorizedAccessToComponent,
                "\n!!! On cherche à accéder à un composant de l'entité %s par '%s'"
                "\n    alors qu'elle est construite pour recevoir des éléments.",
                Shown(entity).c_str(), OrEmpty(operation));
}

void UnAuthorizedAccessToComponent(BasicEntity const* entity, const char* operation, int componentClass) {
  ReportFailure(unAuthorizedAccessToComponent,
                "\n!!! On cherche à accéder à un composant de classe %s de l'entité %s par '%s'"
                "\n    alors qu'elle est construite pour recevoir des éléments.",
                ClassSymbolText(componentClass).c_str(), Shown(entity).c_str(), OrEmpty(operation));
}

void BadSubEntityClass(BasicEntity* entity, int partClass, BasicEntity* part) {
  ReportFailure("\n!!!============== BadSubEntityClass ==============",
                "\n!!! L'entité %s"
                "\n    n'est pas construite pour avoir comme composant ou élément %s"
                "\n    (symbole de classe : %s).",
                Shown(entity).c_str(), Shown(part).c_str(), ClassSymbolText(partClass).c_str());
}

// Elements --------------------------------------------------------------------------------------------------

void UnAuthorizedAccessToElement(BasicEntity const* entity, const char* operation) {
  ReportFailure("\n!!!============== UnAuthorizedAccessToElement ==============",
                "\n!!! On cherche à accéder à un élément de l'entité %s par '%s'"
                "\n    alors qu'elle est construite pour recevoir des composants.",
                Shown(entity).c_str(), OrEmpty(operation));
}

void AddElementFailed(BasicEntity* set, BasicEntity* element) {
  ReportWarning("\n!!! L'élément %s n'a pas été ajouté à l'entité %s.\n", Shown(element).c_str(),
                Shown(set).c_str());
}

void RemoveElementFailed(BasicEntity* set, BasicEntity* element) {
  ReportWarning("\n!!! L'élément %s n'a pas été retiré de l'entité %s.\n", Shown(element).c_str(),
                Shown(set).c_str());
}

void ReplaceElementFailed(BasicEntity* set, BasicEntity* element) {
  ReportWarning("\n!!! L'élément %s n'a pas été remplacé dans l'entité %s.\n", Shown(element).c_str(),
                Shown(set).c_str());
}

void BadSuperSetClass(BasicEntity* element, int superSetClass, BasicEntity* superSet) {
  ReportFailure("\n!!!============== BadSuperSetClass ==============",
                "\n!!! L'entité %s"
                "\n    n'est pas construite pour être élément de %s"
                "\n    (symbole de classe : %s).",
                Shown(element).c_str(), Shown(superSet).c_str(), ClassSymbolText(superSetClass).c_str());
}

void NoElement(BasicEntity const* entity) {
  ReportWarning("\n!!! On cherche un élément pour %s alors qu'elle n'en a pas.\n",
                NameAndClass(entity).c_str());
}

void NoRankedElement(BasicEntity const* entity, int rank) {
  ReportWarning("\n!!! On cherche l'élément de rang %d pour %s alors qu'elle n'en a pas.\n", rank,
                NameAndClass(entity).c_str());
}

void NoNamedElement(BasicEntity const* entity, const char* name) {
  ReportWarning("\n!!! On cherche un élément de nom '%s' pour %s alors qu'elle n'en a pas.\n", OrEmpty(name),
                NameAndClass(entity).c_str());
}

void NoClassNamedElement(BasicEntity const* entity, int elementClass) {
  ReportWarning("\n!!! On cherche un élément de classe %s pour %s alors qu'elle n'en a pas.\n",
                ClassSymbolText(elementClass).c_str(), NameAndClass(entity).c_str());
}

void NoSuperSet(BasicEntity const* entity) {
  ReportWarning("\n!!! On cherche un ensemble contenant %s alors qu'elle n'en a pas.\n",
                NameAndClass(entity).c_str());
}

// Monitors, sorting, layers ---------------------------------------------------------------------------------

void StructAttachmentFailed(BasicEntity* entity) {
  ReportFailure("\n!!!============== StructAttachmentFailed ==============",
                "\n!!! Tentative d'attachement d'un moniteur de structure non alloué. "
                "\n!!! (à l'entité %s)"
                "\n!!! Réaliser cette allocation au début du programme, par un appel"
                "\n!!! à une fonction telle que DefineUserMonitors (voir le manuel KALVE).",
                Shown(entity).c_str());
}

void DoNotHaveMonitorAttached(BasicEntity const* entity) {
  ReportFailure("\n!!!============== DoNotHaveMonitorAttached ==============",
                "\n!!! Tentative d'accès au moniteur sur la structure de l'entité %s"
                "\n    alors qu'aucun moniteur ne lui est attaché.",
                Shown(entity).c_str());
}

void BadEntityTypeInOrderToSort(Tableau<BasicEntity*> entities) {  // NOLINT: by value, as declared
  std::string refused;
  for (const BasicEntity* entity : entities)
    if (IsLivingEntity(entity) && entity->EntityType() == KV_BASIC_ENTITY) refused += " " + Shown(entity);
  ReportFailure("\n!!!============== BadEntityTypeInOrderToSort ==============",
                "\n!!! On cherche à trier des entités qui n'ont pas de descripteurs :%s", refused.c_str());
}

void StrangeEntity(const char* operation, BasicEntity* entity) {
  ReportFailure("\n!!!============== StrangeEntity ==============",
                "!!! %s : l'entité %p n'est ni une entité de base, ni une entité avec descripteurs, "
                "ni une entité.",
                OrEmpty(operation), static_cast<void*>(entity));
}
