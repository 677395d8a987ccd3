// A small reader for the rich text the program ships (its agreement text):
// groups, paragraphs, bold, italic, underline, sizes, colours and escapes.
#pragma once

#include <QByteArray>
#include <QString>

class QTextEdit;

// HTML for the subset of RTF the shipped files use; unknown control words
// are ignored, destinations such as font tables are skipped.
QString RtfToHtml(const QByteArray& rtf);

// Shows the file in `target`; false, and the target left empty, when the
// file can't be read.
bool LoadRtfFile(const QString& windowsPath, QTextEdit* target);
