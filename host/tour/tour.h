// Drives the main flows of the host without a user and leaves a picture of each.
#pragma once

class HostApplication;

// Returns an ExitCode. The host has been started; its event loop has not.
int runTour(HostApplication &host);
