# Found by find_package(VantrelFramework). What it gives:
#
#   Vantrel::Framework      the framework library, which every rule module links
#   Vantrel::check-module   the program that checks a rule module

include("${CMAKE_CURRENT_LIST_DIR}/VantrelFrameworkTargets.cmake")
