// What every benchmark needs: the real frame connected to a server, a clock
// and the process's peak memory.
#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QStringList>

class FtpServer;

// Loads the catalogue (English) and the frame; boxes are answered OK and
// the program's end is ignored.
void StartBenchFrame();
// Connects the frame to the server; false when it failed.
bool ConnectBenchFrame(const FtpServer& server);
// Peak resident memory of this process so far, in MiB.
double PeakMemoryMiB();
// Runs a command to its end; its wall time in seconds, -1 when it failed.
double TimeCommand(const QString& program, const QStringList& arguments);
