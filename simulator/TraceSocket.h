#pragma once

#include <sys/types.h>

#include <QLocalServer>
#include <QString>
#include <string>

namespace sim {

// The place of a local socket that only its own user can reach. Others find it by its name in the user's runtime folder
// ($XDG_RUNTIME_DIR), or in the temporary folder where there is no such folder; a path is taken as it is.
class TraceSocket {
  public:
    // Both must outlive this.
    TraceSocket(QLocalServer& server, const std::string& name);

    QString Path() const { return path_; }

    // Begins to listen. False with the reason in `error`, also while another program serves there. A socket that a
    // killed program has left behind is taken over.
    bool Listen(std::string* error);

    // Ends listening and takes the socket away, but not one that another program has put in its place meanwhile.
    void Close();

  private:
    std::string Complaint() const;
    std::string ComplaintAboutFolder() const;
    bool Claim(const QString& from);
    bool IsLeftBehind() const;

    QLocalServer& server_;
    const QString path_;
    dev_t device_ = 0;
    ino_t node_ = 0;  // 0 as long as no socket of ours is there
};

}  // namespace sim
