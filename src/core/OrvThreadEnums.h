// The enumerations of a command: the status of its record (also what a node's HandleCommand
// answers), what HandleCommand is asked to do, and the add-in's thread and end types, of which the
// library tests only ThreadTypeChild and ThreadEndWaitForChild.
#pragma once

enum OrveThreadStatus : int {
    ThreadNotStarted = 0,
    ThreadDone = 1, // success; the record goes away
    ThreadRunning = 2,
    ThreadSuspended = 3,
    ThreadTerminated = 4,
    ThreadFailed = 5,
    ThreadDoneKeep = 6,        // success; the record stays listed
    ThreadWaitingToRun = 7,    // queued by the add-in
    ThreadWaitingForChild = 8, // own part done; waits for the next record to end
};

enum OrveCommandType : int {
    CommandExecute = 0,   // do the work, on the worker or on the calling thread
    CommandTerminate = 1, // stop; runs on the thread that asked for it
    CommandChildDone = 2, // the child of this parent record has ended; runs on the child's thread
};

// The add-in's values; 4 marks the child of the record in front of it in the manager's list.
enum OrveThreadType : int {
    ThreadTypeChild = 4,
};

// The add-in's values; 2 keeps a record behind after its own work until its child ends.
enum OrveThreadEndType : int {
    ThreadEndWaitForChild = 2,
};
