// ascii.dat: the extensions that go as text in AUTO mode, one a line.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// The Windows-form path of ascii.dat that programdata::AsciiDat() chooses.
QString AsciiDatPath();

// Fields as a formatted input statement reads them, one read after another
// until the end of the text: a comma or a line end ends a field, a quoted
// field runs to its closing quote (commas and line ends included) and what
// follows it up to the delimiter is dropped, leading blanks are dropped, an
// empty line gives an empty field. A comma as the very last character ends
// the text, so it gives no further field.
QStringList ReadFields(const QByteArray& text);
// The fields of ascii.dat; false, and no fields, when it can't be read.
bool ReadAsciiDat(QStringList& entries);
// One entry a line as it stands (no quoting), each ended by CR LF; false
// when the file can't be written, and then the old file stays whole.
bool WriteAsciiDat(const QStringList& entries);
