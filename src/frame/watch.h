// The silent reconnect that walks and the watch use.
#pragma once

#include <QString>

void Reinitialize_Internet();
bool ReopenConnection(const QString& sServer, const QString& sPort, const QString& sUser,
                      const QString& sPassword);
