#include "transfer/frmASCIIListe.h"

// The dialog comes with the ASCII list.
void ShowAsciiListModal() {}
