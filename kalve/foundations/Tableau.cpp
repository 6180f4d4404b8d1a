#include "kalve/foundations/Tableau.h"

void ThrowIndex(int index) { throw index; }

void ReportTabIndexOutOfRange(const char* where, int size, int index) {
  std::printf("\n!!! Indice hors tableau dans '%s' : indice %d, taille du tableau %d.\n", where, index, size);
}

void ReportVoidArray(const char* where) { std::printf("\n!!! Tableau vide dans '%s'.\n", where); }
