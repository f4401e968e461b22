@echo off
rem Starts Skyvane Alerts with one made-up alert, to show what a warning looks and sounds like.
echo This is a drill: Skyvane Alerts will announce "TEST: Tornado Warning".
:ask
tasklist /fi "imagename eq SVAlerts.exe" /fi "username eq %USERNAME%" 2>nul | find /i "SVAlerts.exe" >nul
if errorlevel 1 goto start
echo Skyvane Alerts is running. Choose Exit in the menu of its icon, then press a key here.
pause
goto ask
:start
set USERNAME=Drill
set INI="%~dp0Drill.ini"
set STATIONS="%~dp0Users\Drill"
if not exist %STATIONS% mkdir %STATIONS%
>%STATIONS%\CityCode.cmb echo Lawrence, KS (Drill)                                                                                                    IDDRILL***66044***38.97***-95.23
>%INI% echo [Hosts]
>>%INI% echo FEED=drill://
>>%INI% echo [Options]
>>%INI% echo STOREFILESINPROGRAMFOLDER=True
>>%INI% echo RETRIEVEALERTSONSTARTUP=True
>>%INI% echo DISPLAYTRAYALERT=True
>>%INI% echo FLASHTRAYICON=True
>>%INI% echo TRAYALERTSOUND=Urgent.wav
>>%INI% echo [Misc]
>>%INI% echo RUNS=1
start "" "%~dp0SVAlerts.exe" -i
