// Where the program keeps the one file it writes in its own folder.
#pragma once

#include <QString>

namespace programdata {

// The Windows-form path of ascii.dat. The program folder's own when that
// folder can be written; otherwise (an installed program run by a user) a
// copy of it in the user's data folder, `ferrydock/ascii.dat` under
// XDG_DATA_HOME, seeded from the program folder's the first time it is
// asked for. Without a data folder it stays the program folder's.
QString AsciiDat();

}  // namespace programdata
