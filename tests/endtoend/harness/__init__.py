"""What an end-to-end test needs: a session to run in, the program, its controls, and the disk it works on."""
