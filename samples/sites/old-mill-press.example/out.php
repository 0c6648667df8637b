<html><head><meta http-equiv="refresh" content="0; url=http://harbour-books.example/"></head>
<body>You are on your way to harbour-books.example.</body></html>
