/// The phone in a browser: its page, and what the page asks for.
#pragma once

#include "phone/server/PageDesk.h"

#include <httplib.h>
#include <string>

namespace phone {

/// `/` is the page, all else lies below `/page/`. Answers are JSON; what is refused says why in `error`, in one line.
class Page {
public:
    /// `folder` has the page's files. The phone has to outlive the page.
    Page(LivePhone& phone, std::string folder) : _desk(phone), _folder(std::move(folder)) {}

    /// Where the page's files lie: beside the executable that runs here.
    static std::string folderBesideThis();

    /// Adds the page to the server, which the page has to outlive.
    void serveOn(httplib::Server& http);
    /// From any thread: whoever watches or plays is let go, so that the server can end.
    void close();

private:
    void serveFiles(httplib::Server& http);
    void serveQuestions(httplib::Server& http);

    PageDesk _desk;
    const std::string _folder;
};

} // namespace phone
