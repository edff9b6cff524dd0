#pragma once

#include <memory>
#include <utility>

// A unit of work as a heap object: what workers run, what timers tick, and what
// travels to the window thread. Made with plain new, destroyed with release().
// A task keeps its target alive in no way; captured values are copies.

namespace common {

class Runable {
public:
    virtual void release() { delete this; }
    virtual ~Runable() = default;
    virtual void run() = 0;
};

struct RunableRelease {
    void operator()(Runable* task) const { task->release(); }
};
using RunableOwner = std::unique_ptr<Runable, RunableRelease>;

template <class Lambda>
class FunctionRunable : public Runable {
public:
    explicit FunctionRunable(Lambda lambda) : lambda(std::move(lambda)) {}
    void run() override { lambda(); }

private:
    Lambda lambda;
};

template <class T>
class MemberFuncRunable : public Runable {
public:
    MemberFuncRunable(T* object, void (T::*member)()) : object(object), member(member) {}
    void run() override { (object->*member)(); }

private:
    T* object;
    void (T::*member)();
};

template <class T, class Argument>
class MemberFuncRunable1 : public Runable {
public:
    MemberFuncRunable1(T* object, void (T::*member)(Argument), Argument argument)
        : object(object), member(member), argument(argument) {}
    void run() override { (object->*member)(argument); }

private:
    T* object;
    void (T::*member)(Argument);
    Argument argument;
};

} // namespace common
