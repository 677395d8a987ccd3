// The dialog that keeps the list of ASCII extensions (ascii.dat).
#pragma once

void ShowAsciiListModal();
