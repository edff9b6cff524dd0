#pragma once

#include <memory>
#include <utility>
#include <vector>

// Lists of member functions that a control calls at its events. A list does not keep the
// objects alive: they remove themselves, or outlive the control.

namespace UILib {

template <class Argument>
class CDelegateBase {
public:
    virtual ~CDelegateBase() = default;
    virtual bool invoke(Argument& argument) const = 0;
    virtual bool equals(const CDelegateBase& other) const = 0;
    virtual std::unique_ptr<CDelegateBase> clone() const = 0;
};

template <class Object, class Argument>
class CDelegate : public CDelegateBase<Argument> {
public:
    using Member = bool (Object::*)(Argument&);

    CDelegate(Object* object, Member member) : object(object), member(member) {}
    bool invoke(Argument& argument) const override { return (object->*member)(argument); }
    bool equals(const CDelegateBase<Argument>& other) const override {
        const auto* same = dynamic_cast<const CDelegate*>(&other);
        return same && same->object == object && same->member == member;
    }
    std::unique_ptr<CDelegateBase<Argument>> clone() const override {
        return std::make_unique<CDelegate>(*this);
    }

private:
    Object* object;
    Member member;
};

template <class Argument>
class CDelegateList {
public:
    bool IsEmpty() const { return delegates.empty(); }

    // An equal one, of the same object and function, is not added twice.
    template <class Object>
    void Add(Object* object, bool (Object::*member)(Argument&)) {
        const CDelegate<Object, Argument> added(object, member);
        if (indexOf(added) == delegates.size())
            delegates.push_back(added.clone());
    }

    template <class Object>
    void Remove(Object* object, bool (Object::*member)(Argument&)) {
        const size_t index = indexOf(CDelegate<Object, Argument>(object, member));
        if (index < delegates.size())
            delegates.erase(delegates.begin() + static_cast<ptrdiff_t>(index));
    }

    // In order, up to the first that gives false; true when all accept. A called function
    // may add and remove.
    bool Fire(Argument& argument) const {
        for (size_t i = 0; i < delegates.size(); ++i)
            if (!delegates[i]->clone()->invoke(argument))
                return false;
        return true;
    }

private:
    size_t indexOf(const CDelegateBase<Argument>& wanted) const {
        size_t index = 0;
        while (index < delegates.size() && !delegates[index]->equals(wanted))
            ++index;
        return index;
    }

    std::vector<std::unique_ptr<CDelegateBase<Argument>>> delegates;
};

} // namespace UILib
