# The portable files include no Windows header and are also built for the host, where the sanitizers and
# the fuzzers run them. A test is portable if the file it is named for is portable:
# tests/alerts/SeenAlertsTest.cpp for alerts/SeenAlerts.cpp.
set(portableSources
  alerts/AlertBody.cpp
  alerts/AlertPage.cpp
  alerts/PlaceAnswers.cpp
  alerts/SeenAlerts.cpp
  alerts/StoredAlerts.cpp
  alerts/WordFilter.cpp
  app/StartupValues.cpp
  downloader/Arguments.cpp
  downloader/drill/Source.cpp
  downloader/feed/AlertList.cpp
  downloader/feed/AlertMemory.cpp
  downloader/feed/Area.cpp
  downloader/feed/FeedXml.cpp
  downloader/feed/Gazetteer.cpp
  downloader/feed/IsoTime.cpp
  downloader/feed/Json.cpp
  downloader/feed/Paragraphs.cpp
  downloader/feed/PlaceName.cpp
  downloader/feed/PlaceSearch.cpp
  downloader/feed/Request.cpp
  downloader/feed/Severity.cpp
  downloader/feed/XmlTree.cpp
  downloader/fpas/Alert.cpp
  downloader/fpas/Alerts.cpp
  downloader/fpas/AreaShape.cpp
  downloader/fpas/Endpoints.cpp
  downloader/fpas/Events.cpp
  downloader/fpas/InForce.cpp
  downloader/fpas/Language.cpp
  downloader/fpas/PackedAlert.cpp
  downloader/http/Response.cpp
  downloader/http/Retry.cpp
  downloader/http/Url.cpp
  downloader/live/Route.cpp
  downloader/nws/Alerts.cpp
  downloader/nws/Endpoints.cpp
  downloader/nws/EventIdentity.cpp
  downloader/nws/GeometryReader.cpp
  downloader/nws/Messages.cpp
  downloader/nws/Stations.cpp
  downloader/nws/Tier.cpp
  downloader/nws/Vtec.cpp
  downloader/nws/Zones.cpp
  search/LocationTable.cpp
  search/MapPage.cpp
  search/StationTable.cpp
  settings/IniText.cpp
  settings/Scramble.cpp
  stations/StationLine.cpp
  tray/AlertMenu.cpp
  tray/TrayTip.cpp
  win/CommandLine.cpp
  win/Text.cpp
  win/XmlGuard.cpp
)

# These process the whole text of an answer, so they are built for speed, the others for size.
set_source_files_properties(downloader/feed/FeedXml.cpp downloader/feed/Json.cpp
  downloader/feed/Paragraphs.cpp downloader/nws/Messages.cpp win/Text.cpp
  PROPERTIES COMPILE_OPTIONS -O2)
# These scan megabytes of numbers; every processor that runs Windows 10 has these instructions.
set_source_files_properties(downloader/feed/XmlTree.cpp downloader/fpas/AreaShape.cpp
  PROPERTIES COMPILE_OPTIONS "-O2;-msse2")

# All other sources. Test files and sources in any folder below are picked up automatically.
set(programFolders win settings stations alerts tray options search)
foreach(folder ${programFolders})
  file(GLOB_RECURSE folderSources RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS ${folder}/*.cpp)
  list(APPEND programSources ${folderSources})
endforeach()
file(GLOB_RECURSE fetchSources RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS downloader/*.cpp)
file(GLOB appSources RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS app/*.cpp)
list(REMOVE_ITEM programSources ${portableSources})
list(REMOVE_ITEM fetchSources ${portableSources} downloader/main.cpp)
list(REMOVE_ITEM appSources ${portableSources})

file(GLOB_RECURSE testSources RELATIVE ${CMAKE_SOURCE_DIR} CONFIGURE_DEPENDS tests/*Test.cpp)
foreach(test ${testSources})
  string(REGEX REPLACE "^tests/(.*)Test\\.cpp$" "\\1.cpp" tested ${test})
  if(tested IN_LIST portableSources)
    list(APPEND portableTests ${CMAKE_SOURCE_DIR}/${test})
  else()
    list(APPEND windowsTests ${CMAKE_SOURCE_DIR}/${test})
  endif()
endforeach()
