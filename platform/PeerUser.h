#pragma once

#include <QtGlobal>

// True if the program at the other end of a connected local socket runs as the same user as this one. Where the system
// does not tell, its named pipes admit no one else.
bool IsOfThisUser(qintptr socket);
