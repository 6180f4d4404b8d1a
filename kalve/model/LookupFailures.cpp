// Failures of the lookups of descriptors and methods on an entity.
#include "kalve/descriptors/Descriptor.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/methods/Method.h"
#include "kalve/model/Entity.h"

namespace {

/// The entity of a message, and the end of the sentence; the quotes stay open.
std::string OnEntity(DescriptedEntity const* entity) {
  return Text(
      "\n    sur l'entité '%s de classe '%s"
      "\n    Un tel descripteur n'existe pas pour cette classe.",
      entity->InstanceName(), entity->ClassName());
}

constexpr const char* descriptorCauses =
    "\nCauses possibles : descripteur non attaché à l'entité."
    "\n                 : descripteur avec moniteur, mais déclaré constant."
    "\n                 : descripteur constant traité comme variable et vice versa."
    "\n                 : le numéro (symbole) n'est pas celui d'une classe de descripteurs.";

}  // namespace

void InexistantVariableDescriptor(DescriptedEntity const* entity, int descriptorId) {
  ReportFailure("\n!!!============== InexistantVariableDescriptor ==============",
                "\n!!! Tentative d'accès à un descripteur variable de classe %s%s%s",
                DescriptorIdText(descriptorId).c_str(), OnEntity(entity).c_str(), descriptorCauses);
}

void InexistantConstantDescriptor(DescriptedEntity const* entity, int descriptorId) {
  ReportFailure("\n!!!============== InexistantConstantDescriptor ==============",
                "\n!!! Tentative d'accès à un descripteur constant de classe %s%s%s",
                DescriptorIdText(descriptorId).c_str(), OnEntity(entity).c_str(), descriptorCauses);
}

void BadDescriptorValueType(DescriptedEntity const* entity, const char* descriptorName,
                            const char* operation) {
  ReportFailure("\n!!!============== BadDescriptorValueType ==============",
                "\n!!! L'opération '%s' ne respecte pas le type de valeur du descripteur '%s'"
                "\n    sur l'entité '%s' de classe '%s'.",
                OrEmpty(operation), OrEmpty(descriptorName), entity->InstanceName(), entity->ClassName());
}

void InexistantDescriptor(DescriptedEntity const* entity, int descriptorId, const char* name) {
  const std::string sought = OrEmpty(name)[0] != '\0' ? Text("de nom de classe : '%s", name)
                                                      : "de classe : " + DescriptorIdText(descriptorId);
  ReportFailure("\n!!!============== InexistantDescriptor ==============",
                "\n!!! Tentative d'accès à un descripteur %s%s\n"
                "\nCauses possibles : la spécification d'héritage est incorrecte."
                "\n                   l'accesseur (Set/Get) ne respecte pas le type de valeur.",
                sought.c_str(), OnEntity(entity).c_str());
}

void BadDescriptorTypeWhenAdd(DescriptedEntity* entity, Descriptor* descriptor) {
  const bool isVariable = descriptor != nullptr && descriptor->IsVariable();
  ReportFailure("\n!!!============== BadDescriptorTypeWhenAdd ==============",
                "\n!!! Le descripteur '%s' est %s : il ne peut être ajouté comme %s"
                "\n    à l'entité '%s' de classe '%s'."
                "\n!!! Utiliser AddConstantDescriptor pour un descripteur constant,"
                "\n    AddVariableDescriptor pour un descripteur variable.",
                descriptor != nullptr ? OrEmpty(descriptor->ClassName()) : "NULL",
                isVariable ? "variable" : "constant", isVariable ? "constant" : "variable",
                entity->InstanceName(), entity->ClassName());
}

void InexistantMethod(Entity* entity, int methodId, const char* name) {
  const std::string sought = methodId < 0 ? "inconnue" : MethodIdText(methodId);
  const std::string byName = OrEmpty(name)[0] != '\0' ? Text(" de nom '%s'", name) : "";
  ReportFailure("\n!!!============== InexistantMethod ==============",
                "\n!!! Tentative d'accès à une méthode de classe %s%s"
                "\n    sur l'entité '%s' de classe '%s'."
                "\n!!! Une telle méthode n'existe pas pour cette classe.",
                sought.c_str(), byName.c_str(), entity->InstanceName(), entity->ClassName());
}

void BadMethodValueType(Entity* entity, Method* method, const char* operation) {
  ReportFailure("\n!!!============== BadMethodValueType ==============",
                "\n!!! L'opération '%s' ne respecte pas le type de valeur de la méthode '%s'"
                "\n    sur l'entité '%s' de classe '%s'.",
                OrEmpty(operation), OrEmpty(method->StoredClassName()), entity->InstanceName(),
                entity->ClassName());
}

void BadMethodTypeWhenAdd(Entity* entity, Method* method) {
  ReportFailure("\n!!!============== BadMethodTypeWhenAdd ==============",
                "\n!!! La méthode '%s' n'est pas une méthode d'entité : elle ne peut être ajoutée"
                "\n    à l'entité '%s' de classe '%s'.",
                OrEmpty(method->StoredClassName()), entity->InstanceName(), entity->ClassName());
}
