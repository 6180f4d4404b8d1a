// What the output specification in charge of an entity hears of it. An entity without a record tells
// nothing, and a record comes only from a specification of the entity's class.
#include "kalve/model/BasicEntity.h"

void BasicEntity::EquipForOSAccount() {}

void BasicEntity::GiveElementItem(BasicEntity* /*element*/) {}
void BasicEntity::GiveComponentItem(BasicEntity* /*component*/, int /*number*/) {}
void BasicEntity::TellNameToOutputs() {}
void BasicEntity::TellDeletionToOutputs() {}
