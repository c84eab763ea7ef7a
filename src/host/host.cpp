#include "host/host.h"

#include "host/class.h"

namespace tq {

Itm& itm_getnamed(Host& host, Symbol name) {
    std::unique_ptr<Itm>& itm = host.transports[name.text()];
    if (!itm) itm = std::make_unique<Itm>(host);
    return *itm;
}

Object* symbol_thing(Host& host, Symbol name) {
    if (name.empty()) return nullptr;
    if (auto found = host.things.find(name); found != host.things.end()) return found->second;
    std::unique_ptr<Object> made = host.patch.make_receiver(name);
    return made ? host.receivers.emplace_back(std::move(made)).get() : nullptr;
}

namespace {

const Class& through_class() {
    static const Class the_class("through");
    return the_class;
}

}  // namespace

Through::Through(Host& host, Symbol name, Listener listener)
    : Object(host, through_class()), name_(name), listener_(std::move(listener)) {
    host.things[name_] = this;
}

Through::~Through() {
    auto found = host().things.find(name_);
    if (found != host().things.end() && found->second == this) host().things.erase(found);
}

bool Through::anything(Symbol selector, AtomSpan atoms) {
    listener_(selector, atoms);
    return true;
}

}  // namespace tq
