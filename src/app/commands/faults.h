// Errors of the box on standard error, for commands without a console of their own.
#pragma once

#include <cstdio>

#include "app/patch/session.h"

namespace tq {

class FaultPrinter : public SessionListener {
 public:
    void error(const Object&, const std::string& text) override {
        std::fprintf(stderr, "sorvo: %s\n", text.c_str());
    }
};

/// What the box posts, likewise: what reading a file left out.
class PostPrinter : public SessionListener {
 public:
    void post(const std::string& text) override { std::fprintf(stderr, "%s\n", text.c_str()); }
};

}  // namespace tq
