#pragma once

#include <QString>

namespace qpt {

// Debug output of the skin tables, off unless a designer turns it on.
bool RdLogEnabled();
void SetRdLogEnabled(bool on);
void RdLog(const QString& line);

}  // namespace qpt
