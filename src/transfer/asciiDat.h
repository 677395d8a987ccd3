// ascii.dat: the extensions that go as text in AUTO mode, one a line.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// The path of ascii.dat in the program folder (POSIX form).
QString AsciiDatPath();

// Fields as the classic formatted input reads them: a comma or a line end
// ends a field, a quoted field is taken as it stands, leading blanks are
// dropped, an empty line gives an empty field.
QStringList ReadFields(const QByteArray& text);
// The fields of ascii.dat; none when it can't be read.
QStringList ReadAsciiDat();
// One entry a line, each ended by CR LF; false when it can't be written.
bool WriteAsciiDat(const QStringList& entries);
