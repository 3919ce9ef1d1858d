// What the host wrote (state `downloads`): a link for each file, a player for movies, and the
// macro recorder's switch (state `recording`; the checkbox shows it, a click asks for the change).

import { formatSize } from './format.js';

const MOVIE_TYPES = { mp4: 'video/mp4', webm: 'video/webm' };

function extension(name) {
    const dot = name.lastIndexOf('.');
    return dot < 0 ? '' : name.slice(dot + 1).toLowerCase();
}

export function showDownloads(studio, connection) {
    const list = document.getElementById('download-list');
    const record = document.getElementById('record');

    record.addEventListener('click', (event) => {
        event.preventDefault();
        connection.send({ type: 'record', on: !studio.state.recording });
    });

    connection.onState((changed) => {
        if (changed.has('recording')) {
            record.checked = !!studio.state.recording;
            document.body.classList.toggle('recording', !!studio.state.recording);
        }
        if (!changed.has('downloads')) return;
        const downloads = studio.state.downloads || [];
        list.textContent = '';
        document.getElementById('downloads').hidden = downloads.length === 0;
        for (const file of downloads) {
            const item = document.createElement('li');
            item.dataset.kind = file.kind || 'file';
            const link = document.createElement('a');
            link.href = file.url;
            link.download = file.name;
            link.textContent = file.name;
            const size = document.createElement('span');
            size.className = 'download-size';
            size.textContent = formatSize(Number(file.size) || 0);
            item.append(link, ' ', size);
            const type = MOVIE_TYPES[extension(file.name)];
            if (type) {
                const video = document.createElement('video');
                video.controls = true;
                video.preload = 'metadata';
                const source = document.createElement('source');
                source.src = file.url;
                source.type = type;
                video.append(source);
                item.append(video);
            }
            list.append(item);
        }
    });
}
