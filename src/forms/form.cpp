#include "forms/form.h"

#include <utility>

#include "forms/screen.h"

namespace tabulon {

Form::Form(Screen& screen, std::string name) : Name(std::move(name)), TheScreen(screen) {}

Form::~Form() { TheScreen.Forget(*this); }

void Form::Load() {
    if (Loaded) return;
    Loaded = true;
    ActiveControl = nullptr;
    Design();
    TheScreen.Loaded(*this);
    Form_Load();
}

void Form::Show() {
    Load();
    Visible = true;
    TheScreen.Show(*this);
}

void Form::ShowModal() {
    Load();
    Visible = true;
    const bool isAlone = TheScreen.LoadedForms().size() == 1;
    TheScreen.ShowModal(*this);
    if (!isAlone && TheScreen.LoadedForms().empty()) throw ProgramEnd{};
}

void Form::Hide() {
    if (!Visible) return;
    Visible = false;
    TheScreen.Hide(*this);
}

void Form::ClearFocus() {
    ActiveControl = nullptr;
    ++FocusRequests;
}

void Form::Unload() {
    if (!Loaded || m_unloading) return;
    m_unloading = true;
    bool cancel = false;
    Form_QueryUnload(cancel);
    if (!cancel) {
        Hide();
        Form_Unload();
        Loaded = false;
        TheScreen.Forget(*this);
    }
    m_unloading = false;
}

}  // namespace tabulon
