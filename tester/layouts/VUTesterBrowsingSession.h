#pragma once
// A browsing session over synthetic content: the "random" data source of the tiling view
// settings, placeholder pictures and the fixed action table.

#include "shell/VUTesterExport.h"

#include <browsing/VUBrowsingSession.h>

class VUTESTER_EXPORT VUTesterBrowsingSession : public VUBrowsingSession {
public:
    using VUBrowsingSession::VUBrowsingSession;
    // A new session; each call makes a new data source, manager, provider and action manager.
    static std::shared_ptr<VUTesterBrowsingSession> newBrowsingSession();
};
