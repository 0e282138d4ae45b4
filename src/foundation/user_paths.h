#pragma once
// The user's folders and the files the program keeps in them.
#include <filesystem>

namespace orv {

// The known folders; a failure logs and gives an empty path.
std::filesystem::path gf_appDataPath();
std::filesystem::path gf_localAppDataPath();

// <AppData>/Orvane and the files in it.
std::filesystem::path gf_userFolder();
std::filesystem::path gf_parametersPath();
std::filesystem::path gf_flightPlanFolder();
// <AppData>/InsideSystems/RealTraffic.jar
std::filesystem::path gf_realTrafficJarPath();

}  // namespace orv
