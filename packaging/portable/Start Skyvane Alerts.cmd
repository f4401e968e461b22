@rem Starts Skyvane Alerts so that its settings and stations stay in this folder.
@start "" "%~dp0SVAlerts.exe" -id
