#pragma once

/** Has the program do without a session bus that takes its connection and then says nothing: Qt
 * would wait for it for ever. To be called before there is an application. */
void avoidSilentSessionBus();
