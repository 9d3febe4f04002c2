#include "storage/StoreOutcome.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

StoreOutcome OutcomeOf(const std::exception& fault) {
    const auto* const engineFault = dynamic_cast<const SQLite::Exception*>(&fault);
    // The low byte is the kind of error, the higher ones give details.
    switch (engineFault ? engineFault->getErrorCode() & 0xff : SQLITE_ERROR) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return StoreOutcome::Locked;
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
            return StoreOutcome::NotADatabase;
        default:
            return StoreOutcome::Failed;
    }
}
