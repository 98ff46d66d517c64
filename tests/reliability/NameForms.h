#pragma once

#include "names/NameForms.h"

/** Opens a form, types a name, and saves it. */
template <class Form>
void saveName(AppDelegate& program, TextField* const Form::*field, void (Form::*save)(),
              const QString& name) {
    Form form(program);
    form.viewDidLoad();
    (form.*field)->setText(name);
    (form.*save)();
}
