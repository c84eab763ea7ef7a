// When the program breaks down, the journal takes what was still in memory and the call that was running.
#pragma once

namespace tq {

/// What is to be done with the process in whatever state: it only writes.
class CrashWitness {
 public:
    virtual ~CrashWitness() = default;
    virtual void crashed() noexcept = 0;
};

/// From now on this one is told of a crash before the process ends by it; unless very many are already.
void witness_crashes(CrashWitness& witness);
/// It is told no more.
void forget_witness(CrashWitness& witness);

}  // namespace tq
