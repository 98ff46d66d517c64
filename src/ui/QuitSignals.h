#pragma once

/** Lets every event loop that runs end in order when the system asks the process to: at the end of
 * a session, or by Ctrl-C. Needs the application object; lasts as long as it. */
void quitOnSignals();
