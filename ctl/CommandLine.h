#pragma once

#include <functional>

#include "ctl/Session.h"

using Command = std::function<int(Session& session)>;

// What a command line asks for: a command, or, with none, the status to end with after a text that has been printed.
struct Request {
    Options options;
    Command command;
    int status = kDone;
};

Request ReadCommandLine(int argc, const char* const* argv);

// The command of one line of a batch. None, with a sentence in `fault`, if it is none.
Command ReadBatchCommand(const QStringList& words, QString& fault);
