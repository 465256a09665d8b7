"""The drawing kit and the three example levels drawn with it."""
