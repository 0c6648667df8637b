<html>
<head><title>Net Menders: links</title></head>
<body>
<?php include("links.inc"); print_links($partners); ?>
</body>
</html>
