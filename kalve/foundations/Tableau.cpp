#include "kalve/foundations/Tableau.h"

#include "kalve/foundations/Enumerations.h"
#include "kalve/foundations/Records.h"

void ThrowIndex(int index) { throw index; }

void ReportTabIndexOutOfRange(const char* where, int size, int index) {
  std::printf("\n!!! Indice hors tableau dans '%s' : indice %d, taille du tableau %d.\n", where, index, size);
}

void ReportVoidArray(const char* where) { std::printf("\n!!! Tableau vide dans '%s'.\n", where); }

template <>
void depth_delete<UnifiedValue*>(Tableau<Tableau<UnifiedValue*>*>& t, Tableau<int>* valueTypes) {
  for (int row = 0; row < t.size(); ++row) {
    const bool ownsTexts =
        valueTypes != nullptr && row < valueTypes->size() && valueTypes->get_nth(row) == STRING;
    for (UnifiedValue* value : *t[row]) {
      if (ownsTexts && value != nullptr) std::free(value->stringValue);
      delete value;
    }
    delete t[row];
  }
  t.erase();
}
