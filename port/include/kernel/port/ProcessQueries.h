// Questions about other processes of this machine, answered from /proc.
#pragma once

// 1 when a process runs whose executable file name equals `exeName` without regard to case.
int IsProcessAlreadyRunning(char const* exeName);
int IsProcessAlreadyRunning2(wchar_t* exeName);

// Asks the process to end (SIGTERM). 1 when there is no such process to end (nothing to do) or
// the request was delivered; 0 when it could not be delivered.
int TerminateProcessById(unsigned long processId);
