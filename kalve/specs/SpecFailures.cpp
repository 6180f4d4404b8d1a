// Failures of entity and value specifications.
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/BasicEntity.h"
#include "kalve/model/Entity.h"
#include "kalve/specs/DescValueSpec.h"
#include "kalve/specs/EntitySpec.h"

namespace {

constexpr const char* noInformationForReferenceClass =
    "\n!!!============== NoInformationForReferenceClass ==============";

}  // namespace

void NoInformationForReferenceClass(EntitySpec* spec) {
  ReportFailure(noInformationForReferenceClass,
                "\n!!! La classe de référence de la spécification d'entités '%s' n'est pas définie."
                "\n    Ni le symbole ni le nom de cette classe n'ont été donnés.",
                spec->ClassName());
}

void NoInformationForReferenceClass(EntitySpec* spec, const char* className) {
  ReportFailure(noInformationForReferenceClass,
                "\n!!! La classe de référence '%s' de la spécification d'entités '%s' est inconnue :"
                "\n    aucune instance de cette classe n'a encore été créée.",
                OrEmpty(className), spec->ClassName());
}

void NoInformationForReferenceClass(EntitySpec* spec, Entity* entity) {
  ReportFailure(noInformationForReferenceClass,
                "\n!!! La classe de référence de la spécification d'entités '%s' n'est pas définie."
                "\n    entité : '%s' (classe '%s')",
                spec->ClassName(), entity != nullptr ? entity->InstanceName() : "",
                entity != nullptr ? entity->ClassName() : "");
}

void BadQuantitySpecification(int classSymbol, QuantificatorId quantificator, int quantity) {
  ReportFailure("\n!!!============== BadQuantitySpecification ==============",
                "\n!!! La quantité d'une spécification d'entités de classe %s est incorrecte."
                "\n    quantificateur : %d\n    quantité : %d",
                ClassSymbolText(classSymbol).c_str(), quantificator, quantity);
}

void NoReturnInstanceProcedure(const char* specName, int classSymbol) {
  ReportFailure(
      "\n!!!============== NoReturnInstanceProcedure ==============",
      "\n!!! La spécification d'entités '%s' (classe %s)"
      "\n    n'a été dotée ni d'un prédicat de sélection ni d'une fonction qui crée une liste d'entité.",
      OrEmpty(specName), ClassSymbolText(classSymbol).c_str());
}

void NoInstantiationProcedure(const char* specName, int classSymbol) {
  ReportFailure("\n!!!============== NoInstantiationProcedure ==============",
                "\n!!! La spécification d'entités '%s' (classe %s)"
                "\n    n'a pas été dotée d'une fonction qui crée une entité ou une liste d'entités.",
                OrEmpty(specName), ClassSymbolText(classSymbol).c_str());
}

void BadRelationalOperator(int descriptorId, RelationalOperator relation) {
  ReportFailure(
      "\n!!!============== BadRelationalOperator ==============",
      "\n!!! L'opérateur relationnel (%d) de la spécification de valeur n'est pas géré par le système."
      "\n    Les opérateurs valides sont : IN NOT_IN.\n    descripteur : %s",
      relation, DescriptorIdText(descriptorId).c_str());
}

namespace {

constexpr const char* unAuthorizedEntitySubDomain =
    "\n!!!============== UnAuthorizedEntitySubDomain ==============";

}  // namespace

void UnAuthorizedEntitySubDomain(DescValueSpec* spec, BasicEntity* entity) {
  ReportFailure(unAuthorizedEntitySubDomain,
                "\n!!! Ajout d'une entité (%s) à un domaine constitué de classes."
                "\n    descripteur : %s",
                entity != nullptr ? entity->InstanceName() : "NULL",
                DescriptorIdText(spec->GetDescId()).c_str());
}

void UnAuthorizedEntitySubDomain(DescValueSpec* spec, int classSymbol) {
  ReportFailure(unAuthorizedEntitySubDomain,
                "\n!!! Ajout d'une classe (%s) à un domaine constitué d'entités."
                "\n    descripteur : %s",
                ClassSymbolText(classSymbol).c_str(), DescriptorIdText(spec->GetDescId()).c_str());
}
