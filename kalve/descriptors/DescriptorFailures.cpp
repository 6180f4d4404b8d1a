// Failures of values, domains, class lists, monitors of values and their attachment.
#include "kalve/descriptors/VisitDescriptor.h"
#include "kalve/foundations/CoreException.h"
#include "kalve/foundations/FailureReport.h"
#include "kalve/model/DescriptedEntity.h"
#include "kalve/specs/DescValueSpec.h"

namespace {

const char* NameOf(const Descriptor* descriptor) { return OrEmpty(descriptor->ClassName()); }

std::string Shown(const IntInterval* allowed) { return Text("[%d, %d] ", allowed->low, allowed->high); }
std::string Shown(const FloatInterval* allowed) {
  return Text("[%g, %g] ", static_cast<double>(allowed->low), static_cast<double>(allowed->high));
}
std::string Shown(const DoubleInterval* allowed) { return Text("[%g, %g] ", allowed->low, allowed->high); }
std::string Shown(const BasicEntity* allowed) { return Text("(%p) ", static_cast<const void*>(allowed)); }
std::string Shown(const char* allowed) { return Text("'%s\" ", OrEmpty(allowed)); }

/// The domain of a descriptor of the class; a table, which has none of its own, shows as one without.
template <class Class>
std::string DomainOf(const Descriptor* descriptor) {
  if (descriptor->ClassType() != Class::type) return "NULL";
  auto* domain = static_cast<const Class*>(descriptor)->GetDomain();
  if (domain == nullptr) return "NULL";
  std::string text;
  for (const auto& allowed : *domain->GetDomain()) text += Shown(allowed);
  return text;
}

/// The one shape of all values out of their domain.
[[noreturn]] void FailOutOfDomain(const char* banner, const char* kind, const Descriptor* descriptor,
                                  const std::string& value, const std::string& domain) {
  ReportFailure(banner,
                "\n!!! Affectation %s hors domaine, \n!!! pour le descripteur %s '%s'\n!!! valeur : %s"
                "\n!!! domaine : %s",
                kind, descriptor->IsConstant() ? "constant" : "variable", NameOf(descriptor), value.c_str(),
                domain.c_str());
}

template <class Class>
[[noreturn]] void FailOutOfIntDomain(const Descriptor* descriptor, int value) {
  FailOutOfDomain("\n!!!============== OutOfIntDomain ==============", "de valeur entière", descriptor,
                  std::to_string(value), DomainOf<Class>(descriptor));
}

template <class Class>
[[noreturn]] void FailOutOfFloatDomain(const Descriptor* descriptor, float value) {
  FailOutOfDomain("\n!!!============== OutOfFloatDomain ==============", "de valeur réelle", descriptor,
                  Text("%.10g", static_cast<double>(value)), DomainOf<Class>(descriptor));
}

template <class Class>
[[noreturn]] void FailOutOfDoubleDomain(const Descriptor* descriptor, double value) {
  FailOutOfDomain(
      "\n!!!============== OutOfDoubleDomain ==============", "de valeur réelle (double précision)",
      descriptor, Text("%.10g", value), DomainOf<Class>(descriptor));
}

template <class Class>
[[noreturn]] void FailOutOfStringDomain(const Descriptor* descriptor, const char* value) {
  FailOutOfDomain("\n!!!============== OutOfStringDomain ==============", "de chaîne de caractères",
                  descriptor, Text("'%s'", OrEmpty(value)), DomainOf<Class>(descriptor));
}

template <class Class>
[[noreturn]] void FailOutOfEntityDomain(const Descriptor* descriptor, const BasicEntity* value) {
  const std::string shown = IsLivingEntity(value)
                                ? Text("'%s' de classe '%s'", value->InstanceName(), value->ClassName())
                                : Text("%p", static_cast<const void*>(value));
  FailOutOfDomain("\n!!!============== OutOfEntityDomain ==============", "d'entité", descriptor, shown,
                  DomainOf<Class>(descriptor));
}

}  // namespace

// Values and domains
// -----------------------------------------------------------------------------------------

void OutOfIntDomain(VariableDescriptor* descriptor, int value) {
  FailOutOfIntDomain<IntVariableDescriptor>(descriptor, value);
}
void OutOfIntDomain(ConstantDescriptor* descriptor, int value) {
  FailOutOfIntDomain<IntConstantDescriptor>(descriptor, value);
}
void OutOfFloatDomain(VariableDescriptor* descriptor, float value) {
  FailOutOfFloatDomain<FloatVariableDescriptor>(descriptor, value);
}
void OutOfFloatDomain(ConstantDescriptor* descriptor, float value) {
  FailOutOfFloatDomain<FloatConstantDescriptor>(descriptor, value);
}
void OutOfDoubleDomain(VariableDescriptor* descriptor, double value) {
  FailOutOfDoubleDomain<DoubleVariableDescriptor>(descriptor, value);
}
void OutOfDoubleDomain(ConstantDescriptor* descriptor, double value) {
  FailOutOfDoubleDomain<DoubleConstantDescriptor>(descriptor, value);
}
void OutOfEntityDomain(VariableDescriptor* descriptor, BasicEntity* value) {
  FailOutOfEntityDomain<EntityVariableDescriptor>(descriptor, value);
}
void OutOfEntityDomain(ConstantDescriptor* descriptor, BasicEntity* value) {
  FailOutOfEntityDomain<EntityConstantDescriptor>(descriptor, value);
}
void OutOfStringDomain(VariableDescriptor* descriptor, const char* value) {
  FailOutOfStringDomain<StringVariableDescriptor>(descriptor, value);
}
void OutOfStringDomain(ConstantDescriptor* descriptor, const char* value) {
  FailOutOfStringDomain<StringConstantDescriptor>(descriptor, value);
}

void MisuseValueClassId(Descriptor* descriptor, int classSymbol) {
  ReportFailure("\n!!!============== MisuseValueClassId ==============",
                "\n!!! Déclaration de la classe de valeur %s (par ValueClassId)\n    pour le descripteur "
                "'%s', qui en possède déjà une."
                "\n!!! Pour déclarer une classe de valeur supplémentaire, utiliser AddValueClassId.",
                ClassSymbolText(classSymbol).c_str(), NameOf(descriptor));
}

void MisuseAddValueClassId(Descriptor* descriptor, int classSymbol) {
  ReportFailure("\n!!!============== MisuseAddValueClassId ==============",
                "\n!!! Déclaration de la classe de valeur %s (par AddValueClassId)\n    pour le descripteur "
                "'%s', dont une classe de valeur n'a pas d'ancêtre commun avec elle."
                "\n!!! KV_ENTITY ne compte pas comme ancêtre commun : pour admettre toute entité,"
                "\n    déclarer cette seule classe, par ValueClassId(KV_ENTITY).",
                ClassSymbolText(classSymbol).c_str(), NameOf(descriptor));
}

void DefaultValueNotSupported(DescriptedEntity const* entity, int descriptorId, ValueTypeId type) {
  ReportFailure("\n!!!============== DefaultValueNotSupported ==============",
                "\n!!! Comparaison avec la valeur par défaut du descripteur de classe %s"
                "\n    sur l'entité '%s' de classe '%s'."
                "\n!!! Cette comparaison n'est pas gérée pour le type de valeur %s.",
                DescriptorIdText(descriptorId).c_str(), entity->InstanceName(), entity->ClassName(),
                ValueTypeToChar(type));
}

void DoNotHaveMonitorAttached(VariableDescriptor const* descriptor) {
  ReportFailure("\n!!!============== DoNotHaveMonitorAttached ==============",
                "\n!!! Tentative d'accès au moniteur sur la la valeur de '%s'\n    alors qu'aucun moniteur "
                "n'est attaché à ce descripteur.",
                NameOf(descriptor));
}

void MonitorNotSupportedForEraseEntityTabDescriptor(Descriptor* descriptor) {
  ReportWarning(
      "\n!!! Il n'est pas possible d'attacher un moniteur au descripteur '%s' de type 'tableau d'entités'"
      "\nlorsque la simulation amène à effacer (par ClearValues) le tableau de valeurs.",
      NameOf(descriptor));
}

void MonitorNotSupportedForEraseDescValueSpecTabDescriptor(Descriptor* descriptor) {
  ReportWarning(
      "\n!!! Il n'est pas possible d'attacher un moniteur au descripteur '%s' de type 'tableau de "
      "spécifications de valeurs'"
      "\nlorsque la simulation amène à effacer (par ClearValues) le tableau de valeurs.",
      NameOf(descriptor));
}

// Attachment and assignment
// ------------------------------------------------------------------------------------

void AttachmentFailed(VariableDescriptor* descriptor, DescriptedEntity* entity) {
  ReportFailure("\n!!!============== AttachmentFailed ==============",
                "\n!!! Tentative d'attachement d'un moniteur non alloué. "
                "\n!!! (au descripteur '%s' d'une entité de classe '%s')"
                "\n!!! Réaliser cette allocation au début du programme, par un appel"
                "\n!!! à une fonction telle que DefineUserMonitors (voir le manuel KALVE).",
                NameOf(descriptor), entity->ClassName());
}

void DirectAttachmentFailed(VariableDescriptor* descriptor) {
  ReportFailure("\n!!!============== DirectAttachmentFailed ==============",
                "\n!!! Tentative d'attachement d'un moniteur non alloué. "
                "\n!!! (au descripteur '%s')"
                "\n!!! Réaliser cette allocation au début du programme, par un appel"
                "\n!!! à une fonction telle que DefineUserMonitors (voir le manuel KALVE).",
                NameOf(descriptor));
}

void AttachmentTypeError(VariableDescriptor* descriptor, DescriptedEntity* entity, const char* monitorName) {
  ReportFailure("\n!!!============== AttachmentTypeError ==============",
                "\n!!! Tentative d'attachement d'un moniteur de type inadapté"
                "\n!!! au descripteur '%s' d'une entité de classe '%s'"
                "\n!!! type de valeur du descripteur : %s",
                NameOf(descriptor), entity->ClassName(), OrEmpty(monitorName));
}

void UnAuthorizedAssignment(Descriptor const* left, Descriptor const* right) {
  const auto side = [](Descriptor const* descriptor) {
    return Text("%p:%s", static_cast<const void*>(descriptor->DescribedEntity()), NameOf(descriptor));
  };
  const bool bothAreHeld = left->DescribedEntity() != nullptr && right->DescribedEntity() != nullptr;
  ReportFailure("\n!!!============== UnAuthorizedAssignment ==============",
                "\n!!! Opération interdite d'assignation directe entre descripteurs.%s"
                "\n--> Utiliser les fonctions de type SetValue(value) et Get..Value().",
                bothAreHeld ? ("\n    " + side(left) + " = " + side(right)).c_str() : "");
}
