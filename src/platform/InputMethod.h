#pragma once

/**
 * Has Qt enter text without the compositor's help where a Wayland compositor has no seat, that is
 * neither keyboard nor pointer: Qt 6.4's own input method ends the program there at the first text
 * field. To be called before there is an application.
 */
void chooseInputMethod();
