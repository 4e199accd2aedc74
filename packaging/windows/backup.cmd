@"%~dp0quarvel-data.exe" backup %* & pause
