# fish completion for scrim, scrim-check, scrim-drive and scrim-sketch.

# The list of screen files being typed, completed at its last name.
function __scrim_screens
    set -l list (string match -r '^.*,' -- (commandline -ct))
    set -l last (string replace -r '^.*,' '' -- (commandline -ct))
    set -l names $last*.scrim $last*/
    printf '%s\n' "$list"$names
    test -z "$list"; and echo stdin
end

function __scrim_sketches
    set -l names (commandline -ct)*.sketch (commandline -ct)*.scrim (commandline -ct)*/
    printf '%s\n' $names
end

# The file options keep their file in the same word, behind the letter.
function __scrim_attached
    set -l names (string replace -r '^-.' '' -- (commandline -ct))*
    printf '%s\n' $names
end

complete -c scrim -f
complete -c scrim -s f -x -a '(__scrim_screens)' -d 'Show a form'
complete -c scrim -s l -d 'Show a pick list'
complete -c scrim -s b -d 'Draw a frame'
complete -c scrim -s e -d 'Show an error message'
complete -c scrim -s p -d 'Place the cursor'
complete -c scrim -s t -x -d 'Draw a progress bar'
complete -c scrim -s m -x -d 'Write a message'
complete -c scrim -s A -x -a '(__scrim_attached)' -d 'Write an insert fragment'
complete -c scrim -s U -x -a '(__scrim_attached)' -d 'Write an update fragment'
complete -c scrim -s W -x -a '(__scrim_attached)' -d 'Write a where fragment'
complete -c scrim -s I -x -a '(__scrim_attached)' -d 'Read default values'
complete -c scrim -s r -d 'Highlight by the standout string'
complete -c scrim -s T -d 'Describe the terminal by termcap'
complete -c scrim -s d -d 'Test the keys'
complete -c scrim -s D -d 'Dump the terminal strings'

complete -c scrim-check -f -a '(__scrim_screens)'
complete -c scrim-check -s q -d 'Print nothing'
complete -c scrim-check -s W -d 'Take notes for faults'

complete -c scrim-drive -x -a '(__fish_complete_subcommand -r -c -T -k -K -q -w -o -a)'
complete -c scrim-drive -s s -d 'Print the picture as SVG'
complete -c scrim-drive -s u -d 'The command draws UTF-8'
complete -c scrim-drive -s r -x -d 'Rows of the terminal'
complete -c scrim-drive -s c -x -d 'Columns of the terminal'
complete -c scrim-drive -s T -x -d 'Type of the terminal'
complete -c scrim-drive -s k -x -d 'Type keys'
complete -c scrim-drive -s K -r -F -d 'Type the keys in a file'
complete -c scrim-drive -s q -x -d 'Silence before the next step'
complete -c scrim-drive -s w -x -d 'Time for the command to end'
complete -c scrim-drive -s o -r -F -d 'Where the picture goes'
complete -c scrim-drive -s a -r -F -d 'Write an animated SVG'

complete -c scrim-sketch -f -a '(__scrim_sketches)'
complete -c scrim-sketch -s f -d 'Show the form at once'
complete -c scrim-sketch -s r -d 'Draw a screen file'
complete -c scrim-sketch -s t -d 'Draw a form for a table'
