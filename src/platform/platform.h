// Gathers the seams of this machine; it is built once by the program and by every test.
#pragma once

class Dialogs;
class Drives;
class Files;
class Printer;
class Program;
class Registry;
class Launcher;
class UserSettings;

struct Platform {
    Drives& drives;
    Files& files;
    Registry& registry;
    UserSettings& settings;
    Launcher& launcher;
    Printer& printer;
    Dialogs& dialogs;
    Program& program;
};
