#pragma once

// What a program without a window asks of the shell that started it.

// From now on the system's own error texts, as "No space left on device", are English in every country.
void KeepSystemTextsEnglish();

// From now on Ctrl+C, the end of the session and a request to end are counted in place of ending the program at once. A
// read from the standard input that waits then ends.
void CatchInterrupts();
// How many have come.
int Interrupts();

// A person reads the standard error as it comes; not a file, and not another program.
bool StandardErrorIsTerminal();
