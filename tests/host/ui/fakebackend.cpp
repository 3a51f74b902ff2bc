// Stands for the back end in the tests of what starts it. Does what the file
// "mode" of its data folder says.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>

namespace {

std::string optionOf(int argc, char **argv, const char *name)
{
    for (int i = 1; i + 1 < argc; ++i) {
        if (std::strcmp(argv[i], name) == 0)
            return argv[i + 1];
    }
    return std::string();
}

// How often it was started with this folder, this time included.
int countStart(const std::string &folder)
{
    int starts = 0;
    std::ifstream(folder + "/starts") >> starts;
    std::ofstream(folder + "/starts") << ++starts;
    return starts;
}

void serve(const std::string &folder)
{
    std::cout << R"({"port":40123,"controlPort":-1,"address":"https://127.0.0.1:40123/",)"
              << R"("caFile":")" << folder << R"(/ca.pem","passwordFile":")" << folder
              << R"(/password"})" << std::endl;
}

void waitForTheEndOfInput()
{
    while (std::cin.get() != std::char_traits<char>::eof())
        ;
}

} // namespace

int main(int argc, char **argv)
{
    const std::string folder = optionOf(argc, argv, "--data");
    std::string mode;
    std::ifstream(folder + "/mode") >> mode;
    const int starts = countStart(folder);
    for (int i = 1; i < argc; ++i)
        std::ofstream(folder + "/arguments", std::ios::app | std::ios::binary) << argv[i] << '\n';

    if (mode == "refuses") {
        std::cerr << "the port 443 is in use" << std::endl;
        return 4;
    }
    if (mode == "garbage")
        std::cout << "Hello, I am no back end." << std::endl;
    if (mode == "plain")
        std::cout << R"({"address":"http://127.0.0.1:1"})" << std::endl;
    if (mode == "flood") {
        for (int i = 0; i < 2000; ++i)
            std::cout << std::string(1000, 'x');
        std::cout.flush();
    }
    if (mode == "crashes" || (mode == "crashesonce" && starts == 1)) {
        serve(folder);
        std::abort();
    }
    if (mode == "serves" || mode == "crashesonce" || mode == "deaf")
        serve(folder);
    waitForTheEndOfInput();
    if (mode == "deaf")
        std::this_thread::sleep_for(std::chrono::minutes(5));
    std::ofstream(folder + "/ended") << "yes";
    return 0;
}
