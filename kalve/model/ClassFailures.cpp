// Failures of the class registry and of instances.
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/BasicEntity.h"

namespace {

constexpr const char* unknownEntityClass = "\n!!!============== UnknownEntityClass ==============";
constexpr const char* badEntityClassSpecification =
    "\n!!!============== BadEntityClassSpecification ==============";
constexpr const char* unknownClassCauses =
    "\nCauses typiques : "
    "\n\t- nom de classe erroné dans un fichier en entrée"
    "\n\t- la création d'instance pour cette classe se fait exclusivement "
    "\n\t  par NewEntityFromId.";

}  // namespace

void UnknownEntityClass(int classSymbol, const char* service) {
  ReportFailure(unknownEntityClass,
                "\n!!! Tentative d'acces à une métaclasse à partir du symbole %s"
                "\n    alors qu'aucune classe ne possède ce symbole. "
                "\n    Le service qui effectue cette tentative est '%s'.%s",
                ClassSymbolText(classSymbol).c_str(), OrEmpty(service), unknownClassCauses);
}

void UnknownEntityClass(int classSymbol, const char* service, BasicEntity const* entity) {
  ReportFailure(unknownEntityClass,
                "\n!!! Tentative d'acces à une métaclasse à partir du symbole %s"
                "\n    alors qu'aucune classe ne possède ce symbole. "
                "\n    Le service qui effectue cette tentative est '%s',"
                "\n    sur l'entité '%s' (%p).%s",
                ClassSymbolText(classSymbol).c_str(), OrEmpty(service),
                entity != nullptr ? entity->InstanceName() : "", static_cast<const void*>(entity),
                unknownClassCauses);
}

void BadEntityClassSpecification(const char* service) {
  ReportFailure(badEntityClassSpecification,
                "\n!!! La classe d'entité est mal spécifiée : aucun symbole de classe ne lui correspond."
                "\n    Le service qui effectue cette tentative est '%s'.",
                OrEmpty(service));
}

void BadEntityClassSpecification(const char* service, BasicEntity const* entity) {
  ReportFailure(badEntityClassSpecification,
                "\n!!! La classe d'entité est mal spécifiée : aucun symbole de classe ne lui correspond."
                "\n    Le service qui effectue cette tentative est '%s',"
                "\n    sur l'entité '%s' (%p).",
                OrEmpty(service), entity != nullptr ? entity->InstanceName() : "",
                static_cast<const void*>(entity));
}

void UnfoundEntityBasedOnInstanceName(const char* service, const char* name) {
  ReportFailure("\n!!!============== UnfoundEntityBasedOnInstanceName ==============",
                "\n!!! On recherche une entité à partir de son nom '%s' alors qu'aucune ne le porte."
                "\n    Le service qui effectue cette recherche est '%s'.",
                OrEmpty(name), OrEmpty(service));
}

void EmptyInstanceListForMetaClass(int classSymbol) {
  ReportWarning("\n!!! Attention : la classe de symbole %s ne possède aucune instance.\n",
                ClassSymbolText(classSymbol).c_str());
}

void EmptyInstanceListForMetaClass(int classSymbol, int rank) {
  ReportFailure("\n!!!============== EmptyInstanceListForMetaClass ==============",
                "\n!!! On cherche l'instance de rang %d de la classe de symbole %s"
                "\n    alors que la liste des instances de cette classe est vide."
                "\n    Survient notamment pour la classe Entity et ses ascendantes.",
                rank, ClassSymbolText(classSymbol).c_str());
}

void SimulationNotYetCreated() {
  ReportFailure("\n!!!============== SimulationNotYetCreated ==============",
                "\n!!! La simulation n'a pas encore été créée."
                "\n    L'affecter à pCurrentSim avant cette opération.");
}

void UnknownClassName(const char* service, const char* className) {
  ReportFailure("\n!!!============== UnknownClassName ==============",
                "\n!!! Le nom de classe '%s' n'est connu ni du noyau, ni de l'application."
                "\n    Le service qui l'a cherché est '%s'.",
                OrEmpty(className), OrEmpty(service));
}

void ReservedUserClassId(int classSymbol) {
  ReportFailure("\n!!!============== ReservedUserClassId ==============",
                "\n!!! Le symbole de classe %s est réservé.", ClassSymbolText(classSymbol).c_str());
}

void UnAuthorizedMultipleInheritance(BasicEntity const* entity) {
  ReportFailure("\n!!!============== UnAuthorizedMultipleInheritance ==============",
                "\n!!! L'entité '%s' de classe '%s' hérite de plus de 2 classes parentes immédiates.",
                entity != nullptr ? entity->InstanceName() : "",
                entity != nullptr ? entity->ClassName() : "");
}

void MetaClassNotYetCreated(int classSymbol, const char* operation) {
  ReportFailure("\n!!!============== MetaClassNotYetCreated ==============",
                "\n!!! Recherche d'informations sur une classe (de symbole %s) qui n'a pas encore reçu "
                "d'instances."
                "\n!!! Opération en cours : %s !!!"
                "\n!!! Piste possible : [App_]InstallMetaClasses non invoquée !!!",
                ClassSymbolText(classSymbol).c_str(), OrEmpty(operation));
}
