@"%~dp0quarvel-data.exe" report --open & if errorlevel 1 pause
