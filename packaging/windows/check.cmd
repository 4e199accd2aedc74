@"%~dp0quarvel-data.exe" check --open & if errorlevel 2 pause
