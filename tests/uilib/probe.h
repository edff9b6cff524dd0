#pragma once

#include "uilib/controls/control.h"
#include "uilib/core/dialog_builder.h"
#include "uilib/core/paint_manager.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

// A control that writes down the events it gets, and a listener that writes down
// notifications. The tags of probes: Probe, Stop (a tab stop), Label.

struct Probe : UILib::CControlUI {
    Probe(std::vector<std::string>& log, const wchar_t* className, unsigned flags)
        : log(log), className(className), flags(flags) {}

    const wchar_t* GetClass() const override { return className; }
    unsigned GetControlFlags() const override { return flags; }
    bool Activate() override {
        write("activate");
        return CControlUI::Activate();
    }
    void DoEvent(UILib::TUIEvent& event) override {
        last = event;
        write(std::to_string(event.kind));
        if (event.kind == UILib::EventTimer && onTimer)
            onTimer();
        CControlUI::DoEvent(event);
    }
    void write(const std::string& what) {
        const std::wstring name(GetName());
        log.push_back(std::string(name.begin(), name.end()) + ":" + what);
    }

    std::vector<std::string>& log;
    const wchar_t* className;
    unsigned flags;
    UILib::TUIEvent last = {};
    std::function<void()> onTimer;
};

struct ProbeCreator : UILib::IDialogBuilderCallback, UILib::INotifyUI {
    UILib::CControlUI* CreateControl(const wchar_t* tag) override {
        if (wcscmp(tag, L"Probe") == 0)
            return new Probe(log, L"Probe", 0);
        if (wcscmp(tag, L"Stop") == 0)
            return new Probe(log, L"Stop", UILib::FlagTabStop);
        return wcscmp(tag, L"Label") == 0 ? new Probe(log, L"Label", 0) : nullptr;
    }
    void Notify(UILib::TUINotify& notification) override {
        const std::wstring type(notification.type),
            name(notification.sender ? notification.sender->GetName().GetData() : L"?");
        log.push_back(std::string(name.begin(), name.end()) + "!" + std::string(type.begin(), type.end()));
    }
    std::string take() {
        std::string all;
        for (const std::string& line : log)
            all += (all.empty() ? "" : " ") + line;
        log.clear();
        return all;
    }

    std::vector<std::string> log;
};
