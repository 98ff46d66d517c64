#pragma once

/**
 * Settles what Qt would wait for: a session bus that takes a connection and then says nothing is
 * done without, and the portal's file chooser is used where it answers at once, unless the user has
 * chosen a platform theme. To be called before there is an application.
 */
void askSessionBus();
