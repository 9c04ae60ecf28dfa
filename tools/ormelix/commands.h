// The commands of ormelix. Each takes the words after its name and gives the exit
// status; bad input is a cli::UsageError (exit 2).
#pragma once

#include "cli.h"

namespace cli {

int Init(Arguments args);
int Demo(Arguments args);
int Show(Arguments args);
int Copy(Arguments args);
int Export(Arguments args);
int Import(Arguments args);
int Backup(Arguments args);
int Check(Arguments args);

extern const char* const kInitHelp;
extern const char* const kDemoHelp;
extern const char* const kShowHelp;
extern const char* const kCopyHelp;
extern const char* const kExportHelp;
extern const char* const kImportHelp;
extern const char* const kBackupHelp;
extern const char* const kCheckHelp;

}  // namespace cli
